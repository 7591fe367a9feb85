#include "platform/dao/parser.h"

#include "platform/dao/parserbase.h"
#include "platform/dao/types.h"
#include "platform/runtime/error.h"

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

/// The clauses of the statements. Expressions are read by the base.
class Parser : public ExpressionParser
{
public:
    using ExpressionParser::ExpressionParser;

    Statement run()
    {
        Statement statement = readStatement();
        const bool ended = take(u";");
        if (peek().kind != TokenKind::End) {
            if (ended) {
                throw runtime::RuntimeError(3142, u"Foram encontrados caracteres após o fim da instrução SQL."_s);
            }
            fail(u"Erro de sintaxe (operador faltando)"_s);
        }
        return statement;
    }

protected:
    Select readSelect() override
    {
        Select select;
        expect(u"SELECT");
        select.distinct = takeWord(u"DISTINCT") || takeWord(u"DISTINCTROW");
        if (!select.distinct) {
            takeWord(u"ALL");
        }
        if (takeWord(u"TOP")) {
            select.topLiteral = wholeLiteral();
        }
        do {
            select.items.push_back(readItem());
        } while (take(u","));
        if (takeWord(u"FROM")) {
            readFrom(select);
        }
        readConditions(select);
        return select;
    }

private:
    Statement readStatement()
    {
        const Token first = peek();
        if (isWord(first, u"SELECT")) {
            return {StatementKind::Select, readSelect(), {}, {}, {}};
        }
        next();
        if (isWord(first, u"DELETE")) {
            return readDelete();
        }
        if (isWord(first, u"UPDATE")) {
            return readUpdate();
        }
        if (isWord(first, u"INSERT")) {
            return readInsert();
        }
        if (isWord(first, u"CREATE")) {
            return readCreate();
        }
        if (isWord(first, u"ALTER")) {
            return readAlter();
        }
        if (isWord(first, u"DROP")) {
            return readDrop();
        }
        fail(u"Instrução SQL inválida; esperava-se 'DELETE', 'INSERT', 'SELECT' ou 'UPDATE'"_s);
    }

    int wholeLiteral()
    {
        const Token token = next();
        if (token.kind != TokenKind::Literal || !std::holds_alternative<qint32>(literal(token.literal))) {
            fail(u"Erro de sintaxe"_s);
        }
        return token.literal;
    }

    SelectItem readItem()
    {
        SelectItem item;
        if (take(u"*")) {
            item.star = true;
            return item;
        }
        if (isName(peek()) && isSymbol(peek(1), u".") && isSymbol(peek(2), u"*")) {
            item.starTable = name();
            skip(2);
            item.star = true;
            return item;
        }
        item.expression = readExpression();
        if (takeWord(u"AS")) {
            item.alias = name();
        }
        return item;
    }

    void readFrom(Select &select)
    {
        beginClause();
        do {
            readJoins(select);
        } while (take(u","));
    }

    void readJoins(Select &select)
    {
        readTable(select, {});
        for (;;) {
            const QString kind = joinKind();
            if (kind.isEmpty()) {
                return;
            }
            readTable(select, kind);
            expect(u"ON");
            select.from.back().on = readExpression();
        }
    }

    QString joinKind()
    {
        for (const QStringView kind : {QStringView(u"INNER"), QStringView(u"LEFT"), QStringView(u"RIGHT")}) {
            if (takeWord(kind)) {
                takeWord(u"OUTER");
                expect(u"JOIN");
                return kind.toString();
            }
        }
        return takeWord(u"JOIN") ? u"INNER"_s : QString();
    }

    /// Joins in parentheses on the left only: there they are read as if the parentheses were not there.
    void readTable(Select &select, const QString &join)
    {
        if (join.isEmpty() && take(u"(")) {
            const Nesting nesting(*this);
            readJoins(select);
            expectSymbol(u")");
            return;
        }
        FromTable from{name(), {}, join, {}};
        if (takeWord(u"AS") || isName(peek())) {
            from.alias = name();
        }
        select.from.push_back(std::move(from));
    }

    void readConditions(Select &select)
    {
        readWhere(select);
        if (takeWord(u"GROUP")) {
            expect(u"BY");
            beginClause();
            do {
                select.groupBy.push_back(readExpression());
            } while (take(u","));
        }
        if (takeWord(u"HAVING")) {
            beginClause();
            select.having = readExpression();
        }
        if (takeWord(u"ORDER")) {
            expect(u"BY");
            beginClause();
            do {
                select.orderBy.push_back(readOrder());
            } while (take(u","));
        }
    }

    void readWhere(Select &select)
    {
        if (takeWord(u"WHERE")) {
            beginClause();
            select.where = readExpression();
        }
    }

    OrderItem readOrder()
    {
        OrderItem item{readExpression(), false};
        item.descending = takeWord(u"DESC");
        if (!item.descending) {
            takeWord(u"ASC");
        }
        return item;
    }

    Statement readDelete()
    {
        Statement statement{StatementKind::Delete, {}, {}, {}, {}};
        if (!isWord(peek(), u"FROM") && !take(u"*")) {
            statement.table = name();
            expectSymbol(u".");
            expectSymbol(u"*");
        }
        expect(u"FROM");
        readFrom(statement.select);
        readWhere(statement.select);
        return statement;
    }

    Statement readUpdate()
    {
        Statement statement{StatementKind::Update, {}, {}, {}, {}};
        readFrom(statement.select);
        expect(u"SET");
        beginClause();
        do {
            readAssignment(statement);
        } while (take(u","));
        readWhere(statement.select);
        return statement;
    }

    void readAssignment(Statement &statement)
    {
        QString column = name();
        if (take(u".")) {
            column = name();
        }
        expectSymbol(u"=");
        statement.columns.append(column);
        statement.select.items.push_back({readExpression(), {}, false, {}});
    }

    Statement readInsert()
    {
        Statement statement{StatementKind::Insert, {}, {}, {}, {}};
        expect(u"INTO");
        statement.table = name();
        if (take(u"(")) {
            do {
                statement.columns.append(name());
            } while (take(u","));
            expectSymbol(u")");
        }
        beginClause();
        if (takeWord(u"VALUES")) {
            expectSymbol(u"(");
            do {
                statement.select.items.push_back({readExpression(), {}, false, {}});
            } while (take(u","));
            expectSymbol(u")");
        } else {
            statement.select = readSelect();
        }
        return statement;
    }

    Statement readCreate()
    {
        Statement statement{StatementKind::CreateTable, {}, {}, {}, {}};
        expect(u"TABLE");
        statement.table = name();
        expectSymbol(u"(");
        do {
            statement.fields.push_back(readField());
        } while (take(u","));
        expectSymbol(u")");
        return statement;
    }

    Statement readAlter()
    {
        Statement statement{StatementKind::AlterAdd, {}, {}, {}, {}};
        expect(u"TABLE");
        statement.table = name();
        const bool drop = takeWord(u"DROP");
        if (!drop) {
            expect(u"ADD");
        }
        takeWord(u"COLUMN");
        if (drop) {
            statement.kind = StatementKind::AlterDrop;
            statement.columns.append(name());
        } else {
            statement.fields.push_back(readField());
        }
        return statement;
    }

    Statement readDrop()
    {
        Statement statement{StatementKind::DropTable, {}, {}, {}, {}};
        expect(u"TABLE");
        statement.table = name();
        return statement;
    }

    Field readField()
    {
        Field field;
        field.name = name();
        const QString type = name();
        const auto found = typeOfDefinition(type);
        if (!found) {
            throw runtime::RuntimeError(3292, u"Erro de sintaxe na definição de campo."_s);
        }
        field.type = found->type;
        field.attributes = found->counter ? counterAttributes : 0;
        field.size = field.type == FieldType::Text ? 255 : 0;
        if (take(u"(")) {
            field.size = std::get<qint32>(literal(wholeLiteral()));
            expectSymbol(u")");
        }
        if (field.type == FieldType::Text && (field.size < 1 || field.size > 255)) {
            throw runtime::RuntimeError(3292, u"Erro de sintaxe na definição de campo."_s);
        }
        return field;
    }
};

} // namespace

Statement parse(const Tokens &tokens, QStringView statement)
{
    return Parser(tokens, statement).run();
}

} // namespace dao
