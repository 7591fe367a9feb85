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
                runtime::raise(3142);
            }
            fail(u"Erro de sintaxe (operador faltando)"_s);
        }
        return statement;
    }

protected:
    Select readSelect() override { return readSelect(nullptr); }

private:
    /// `into` takes the name behind INTO; null where none may stand.
    Select readSelect(QString *into)
    {
        Select select;
        expect(u"SELECT");
        select.distinct = takeWord(u"DISTINCT") || takeWord(u"DISTINCTROW");
        if (!select.distinct) {
            takeWord(u"ALL");
        }
        if (takeWord(u"TOP")) {
            select.topLiteral = wholeLiteral();
            select.percent = takeWord(u"PERCENT");
        }
        do {
            select.items.push_back(readItem());
        } while (take(u","));
        if (into != nullptr && takeWord(u"INTO")) {
            *into = name();
            refuseOtherFile();
        }
        if (takeWord(u"FROM")) {
            readFrom(select);
        }
        readConditions(select);
        return select;
    }

    /// A SELECT with those that UNION adds to it. The ORDER BY behind the last one is that of the whole.
    Select readQuery(QString *into)
    {
        Select query = readSelect(into);
        for (Select *last = &query; takeWord(u"UNION"); last = &query.unions.back()) {
            if (!last->orderBy.empty()) {
                fail(u"Erro de sintaxe (ORDER BY antes de UNION)"_s);
            }
            const bool all = takeWord(u"ALL");
            query.unions.push_back(readSelect());
            query.unions.back().unionAll = all;
        }
        if (!query.unions.empty()) {
            query.unionOrder = std::exchange(query.unions.back().orderBy, {});
        }
        return query;
    }

    Statement readStatement()
    {
        const Token first = peek();
        if (isWord(first, u"SELECT")) {
            Statement statement;
            statement.select = readQuery(&statement.table);
            statement.kind = statement.table.isEmpty() ? StatementKind::Select : StatementKind::SelectInto;
            return statement;
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
        if (first.kind == TokenKind::Name) {
            unsupported(first.text.toString());
        }
        if (first.kind == TokenKind::End) {
            runtime::raise(3075, {}, runtime::Wording::EmptyStatement);
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
            add(readJoins(), {}, select.from);
        } while (take(u","));
    }

    std::vector<FromTable> readJoins()
    {
        std::vector<FromTable> joined;
        add(readTable(), {}, joined);
        for (QString kind = joinKind(); !kind.isEmpty(); kind = joinKind()) {
            add(readTable(), kind, joined);
            expect(u"ON");
            joined.back().on = readExpression();
        }
        return joined;
    }

    /// Joins that begin a clause need no brackets: they are read from the left in any case.
    static void add(std::vector<FromTable> tables, const QString &join, std::vector<FromTable> &clause)
    {
        if (clause.empty()) {
            clause = std::move(tables);
        } else if (tables.size() == 1) {
            clause.push_back(std::move(tables.front()));
            clause.back().join = join;
        } else {
            clause.push_back({{}, {}, join, {}, std::move(tables)});
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

    /// One table, or in brackets several that are joined.
    std::vector<FromTable> readTable()
    {
        if (take(u"(")) {
            if (isWord(peek(), u"SELECT")) {
                unsupported(u"FROM (SELECT)"_s);
            }
            const Nesting nesting(*this);
            std::vector<FromTable> group = readJoins();
            expectSymbol(u")");
            return group;
        }
        FromTable from;
        from.table = name();
        refuseOtherFile();
        if (takeWord(u"AS") || isName(peek())) {
            from.alias = name();
        }
        return {std::move(from)};
    }

    void refuseOtherFile() const
    {
        if (isWord(peek(), u"IN")) {
            unsupported(u"IN"_s);
        }
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
        Statement statement;
        statement.kind = StatementKind::Delete;
        if (!isWord(peek(), u"FROM") && !take(u"*")) {
            statement.table = name();
            expectSymbol(u".");
            expectSymbol(u"*");
            if (isSymbol(peek(), u",")) {
                runtime::raise(3086);
            }
        }
        expect(u"FROM");
        readFrom(statement.select);
        readWhere(statement.select);
        return statement;
    }

    Statement readUpdate()
    {
        Statement statement;
        statement.kind = StatementKind::Update;
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
        Expression target;
        target.kind = Expression::Kind::Name;
        target.text = name();
        if (take(u".") || take(u"!")) {
            target.table = std::exchange(target.text, name());
        }
        expectSymbol(u"=");
        statement.targets.push_back(std::move(target));
        statement.select.items.push_back({readExpression(), {}, false, {}});
    }

    Statement readInsert()
    {
        Statement statement;
        statement.kind = StatementKind::Insert;
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
            statement.select = readQuery(nullptr);
            statement.byName = true;
        }
        return statement;
    }

    Statement readCreate()
    {
        Statement statement;
        if (takeWord(u"INDEX")) {
            readIndex(statement);
            return statement;
        }
        statement.kind = StatementKind::CreateTable;
        expectTable(u"CREATE");
        statement.table = name();
        expectSymbol(u"(");
        do {
            statement.fields.push_back(readField());
        } while (take(u","));
        expectSymbol(u")");
        return statement;
    }

    void expectTable(QStringView verb)
    {
        if (!takeWord(u"TABLE")) {
            if (peek().kind == TokenKind::Name) {
                unsupported(verb + u' ' + peek().text);
            }
            expect(u"TABLE");
        }
    }

    void readIndex(Statement &statement)
    {
        statement.kind = StatementKind::CreateIndex;
        statement.index = name();
        expect(u"ON");
        statement.table = name();
        expectSymbol(u"(");
        do {
            IndexColumn column{name(), takeWord(u"DESC")};
            if (!column.descending) {
                takeWord(u"ASC");
            }
            statement.indexColumns.push_back(std::move(column));
        } while (take(u","));
        expectSymbol(u")");
        refuseWords();
    }

    Statement readAlter()
    {
        Statement statement;
        statement.kind = StatementKind::AlterAdd;
        expect(u"TABLE");
        statement.table = name();
        const bool drop = takeWord(u"DROP");
        if (!drop && !takeWord(u"ADD")) {
            refuseWords();
            expect(u"ADD");
        }
        takeWord(u"COLUMN");
        refuseConstraint();
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
        Statement statement;
        if (takeWord(u"INDEX")) {
            statement.kind = StatementKind::DropIndex;
            statement.index = name();
            expect(u"ON");
            statement.table = name();
            return statement;
        }
        statement.kind = StatementKind::DropTable;
        expectTable(u"DROP");
        statement.table = name();
        return statement;
    }

    void refuseConstraint() const
    {
        for (const QStringView word :
             {QStringView(u"CONSTRAINT"), QStringView(u"PRIMARY"), QStringView(u"UNIQUE"), QStringView(u"FOREIGN")}) {
            if (isWord(peek(), word)) {
                refuseWords();
            }
        }
    }

    Field readField()
    {
        refuseConstraint();
        Field field;
        field.name = name();
        const QString type = name();
        const auto found = typeOfDefinition(type);
        if (!found) {
            runtime::raise(3292, {type}, runtime::Wording::UnknownFieldType);
        }
        field.type = found->type;
        field.attributes = found->counter ? counterAttributes : 0;
        field.size = field.type == FieldType::Text ? 255 : 0;
        if (take(u"(")) {
            const int size = std::get<qint32>(literal(wholeLiteral()));
            field.size = field.type == FieldType::Text ? size : 0;
            expectSymbol(u")");
        }
        if (field.type == FieldType::Text && (field.size < 1 || field.size > 255)) {
            runtime::raise(3292);
        }
        refuseWords();
        return field;
    }
};

} // namespace

Statement parse(const Tokens &tokens, QStringView statement)
{
    return Parser(tokens, statement).run();
}

} // namespace dao
