#include "platform/dao/rewriter.h"

#include "platform/dao/expressions.h"
#include "platform/dao/parser.h"
#include "platform/runtime/error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

struct OrderTerm {
    QString sql;
    bool descending = false;
};

/// The pieces of a SELECT in the engine's words.
struct Written {
    std::vector<ResultColumn> columns;
    QStringList values;
    QString from;
    QString where;
    QString grouping;
    std::vector<OrderTerm> order;
    QString limit;
    bool plain = true; ///< rows are rows of the tables: no aggregate, no grouping, no outer join
};

QString orderBy(const std::vector<OrderTerm> &order, bool reversed)
{
    QStringList terms;
    for (const OrderTerm &term : order) {
        terms.append(term.sql + (term.descending != reversed ? u" DESC"_s : QString()));
    }
    return terms.isEmpty() ? QString() : u" ORDER BY "_s + terms.join(u", "_s);
}

QString both(const QString &first, const QString &second)
{
    return first.isEmpty() ? second : second.isEmpty() ? first : u'(' + first + u") AND "_s + second;
}

QString whereClause(const QString &condition)
{
    return condition.isEmpty() ? QString() : u" WHERE "_s + condition;
}

class Rewriter : public ExpressionWriter
{
public:
    Rewriter(const Schema &schema, const Tokens &tokens, QStringView text)
        : ExpressionWriter(tokens.literals, text), schema_(schema), tokens_(tokens)
    {
    }

    Plan run(Statement statement)
    {
        plan_.kind = statement.kind;
        dispatch(statement);
        finish();
        plan_.definition = std::move(statement);
        plan_.binds = std::move(binds_);
        return std::move(plan_);
    }

protected:
    Term writeSubselect(const Select &select, bool anyColumns) override
    {
        const bool aggregate = std::exchange(sawAggregate_, false);
        const bool bare = std::exchange(sawBareColumn_, false);
        const Scope scope = openScope(select);
        const Scope *const outer = std::exchange(scope_, &scope);
        const Written written = writeSelect(select);
        scope_ = outer;
        sawAggregate_ = aggregate;
        sawBareColumn_ = bare;
        if (written.columns.size() != 1 && !anyColumns) {
            throw runtime::RuntimeError(3306, u"A subconsulta só pode devolver um campo."_s);
        }
        Term term;
        term.sql = u'(' + selectText(select, written, written.values.join(u", "_s)) + u')';
        term.type = written.columns.front().type;
        return term;
    }

private:
    void dispatch(const Statement &statement)
    {
        switch (statement.kind) {
        case StatementKind::Select:
            return planSelect(statement.select);
        case StatementKind::Delete:
            return planDelete(statement);
        case StatementKind::Update:
            return planUpdate(statement);
        case StatementKind::Insert:
            return planInsert(statement);
        case StatementKind::CreateTable:
            return;
        case StatementKind::AlterAdd:
        case StatementKind::AlterDrop:
            plan_.target = definedTable(statement.table, 3371);
            return;
        case StatementKind::DropTable:
            plan_.target = definedTable(statement.table, 3376);
            return;
        }
    }

    std::shared_ptr<const Table> definedTable(const QString &name, int error) const
    {
        auto table = schema_.find(name);
        if (!table) {
            runtime::raise(error, {name});
        }
        return table;
    }

    Scope openScope(const Select &select)
    {
        Scope scope;
        scope.outer = scope_;
        for (const FromTable &from : select.from) {
            Source source;
            source.table = definedTable(from.table, 3078);
            source.name = from.alias.isEmpty() ? source.table->name : from.alias;
            source.alias = u't' + QString::number(aliases_++);
            if (std::any_of(scope.sources.begin(), scope.sources.end(), [&source](const Source &other) {
                    return other.name.compare(source.name, Qt::CaseInsensitive) == 0;
                })) {
                fail(u"Tabela repetida na cláusula FROM"_s);
            }
            plan_.reads.append(source.table->name);
            scope.sources.push_back(std::move(source));
        }
        return scope;
    }

    /// Inner joins become a list of tables with conditions, so that the engine is free in its order of search.
    void writeFrom(const Select &select, Written &written)
    {
        for (size_t i = 0; i < select.from.size(); ++i) {
            const FromTable &from = select.from[i];
            const Source &source = scope_->sources[i];
            const bool outer = from.join == u"LEFT" || from.join == u"RIGHT";
            const QString link = i == 0 ? QString() : outer ? u' ' + from.join + u" JOIN "_s : u" JOIN "_s;
            written.from += link + quoted(source.table->name) + u" AS "_s + source.alias;
            if (outer) {
                written.from += u" ON "_s + writeCondition(*from.on);
                written.plain = false;
            } else if (from.on) {
                written.where = both(written.where, writeCondition(*from.on));
            }
        }
    }

    Written writeSelect(const Select &select)
    {
        Written written;
        writeFrom(select, written);
        if (select.where) {
            written.where = both(written.where, writeCondition(*select.where));
        }
        refuseAggregate();
        const QStringList groups = writeGrouping(select, written);
        writeItems(select, written, groups);
        if (select.having) {
            written.grouping += u" HAVING "_s + writeCondition(*select.having);
        }
        for (const OrderItem &item : select.orderBy) {
            written.order.push_back(writeOrder(select, item, written));
        }
        written.plain = written.plain && !sawAggregate_ && groups.isEmpty() && !select.having && !select.distinct &&
                        !select.from.empty();
        addStorageOrder(written);
        if (select.topLiteral >= 0) {
            written.limit = u" LIMIT ?"_s + QString::number(select.topLiteral + 1);
        }
        return written;
    }

    void refuseAggregate()
    {
        if (sawAggregate_) {
            throw runtime::RuntimeError(3096, u"Não pode haver função agregada na cláusula WHERE."_s);
        }
        sawBareColumn_ = false;
    }

    QStringList writeGrouping(const Select &select, Written &written)
    {
        QStringList groups;
        for (const Expression &expression : select.groupBy) {
            groups.append(asValue(write(expression)));
        }
        if (!groups.isEmpty()) {
            written.grouping = u" GROUP BY "_s + groups.join(u", "_s);
        }
        refuseAggregate();
        return groups;
    }

    void writeItems(const Select &select, Written &written, const QStringList &groups)
    {
        bool loose = false;
        for (const SelectItem &item : select.items) {
            sawBareColumn_ = false;
            if (item.star) {
                writeStar(item.starTable, written);
                continue;
            }
            const Term term = write(item.expression);
            loose = loose || (sawBareColumn_ && !groups.contains(asValue(term)));
            addColumn(written, term, columnName(item, term, written.columns.size()), item.alias.isEmpty());
        }
        if (loose && (sawAggregate_ || !groups.isEmpty())) {
            throw runtime::RuntimeError(3122, u"A consulta usa um campo que não faz parte de uma função agregada."_s);
        }
    }

    QString columnName(const SelectItem &item, const Term &term, size_t place) const
    {
        if (!item.alias.isEmpty()) {
            return item.alias;
        }
        if (item.expression.kind == Expression::Kind::Name) {
            return term.table >= 0 ? fieldOf(term).name : item.expression.text;
        }
        return u"Expr"_s + QString::number(1000 + place);
    }

    const Field &fieldOf(const Term &term) const
    {
        return scope_->sources[static_cast<size_t>(term.table)].table->fields[static_cast<size_t>(term.place)];
    }

    void addColumn(Written &written, const Term &term, const QString &name, bool named)
    {
        ResultColumn column;
        if (term.table >= 0) {
            column.field = fieldOf(term);
            column.qualifiedName =
                named ? scope_->sources[static_cast<size_t>(term.table)].name + u'.' + name : QString();
            column.table = term.table;
            column.place = term.place;
        } else {
            column.field.type = term.type.value_or(FieldType::Text);
        }
        column.field.name = name;
        column.type = term.type;
        written.columns.push_back(std::move(column));
        written.values.append(asValue(term));
    }

    void writeStar(const QString &table, Written &written)
    {
        bool found = false;
        for (size_t i = 0; i < scope_->sources.size(); ++i) {
            const Source &source = scope_->sources[i];
            if (!table.isEmpty() && source.name.compare(table, Qt::CaseInsensitive) != 0) {
                continue;
            }
            found = true;
            sawBareColumn_ = true;
            for (size_t place = 0; place < source.table->fields.size(); ++place) {
                const Field &field = source.table->fields[place];
                const Term term{source.alias + u'.' + quoted(field.name),
                                field.type,
                                -1,
                                false,
                                static_cast<int>(i),
                                static_cast<int>(place)};
                addColumn(written, term, field.name, true);
            }
        }
        if (!found) {
            runtime::raise(3078, {table});
        }
    }

    /// A number stands for the column of the result at that place; a name may be one that the statement itself gave.
    OrderTerm writeOrder(const Select &select, const OrderItem &item, const Written &written)
    {
        const Expression &expression = item.expression;
        if (expression.kind == Expression::Kind::Literal) {
            const auto *const place = std::get_if<qint32>(&tokens_.literals[static_cast<size_t>(expression.literal)]);
            if (place == nullptr || *place < 1 || *place > written.values.size()) {
                fail(u"Erro de sintaxe na cláusula ORDER BY"_s);
            }
            return ordered(written.values[*place - 1], written.columns[static_cast<size_t>(*place - 1)].type,
                           item.descending);
        }
        for (size_t i = 0;
             i < select.items.size() && expression.kind == Expression::Kind::Name && expression.table.isEmpty(); ++i) {
            if (!select.items[i].alias.isEmpty() &&
                select.items[i].alias.compare(expression.text, Qt::CaseInsensitive) == 0 &&
                select.items.size() == written.columns.size()) {
                return ordered(written.values[static_cast<qsizetype>(i)], written.columns[i].type, item.descending);
            }
        }
        const Term term = write(expression);
        return ordered(asValue(term), term.type, item.descending);
    }

    static OrderTerm ordered(const QString &sql, std::optional<FieldType> type, bool descending)
    {
        return {type == FieldType::Text ? sql + u" COLLATE TARVELO"_s : sql, descending};
    }

    /// Equal keys keep their order of arrival.
    void addStorageOrder(Written &written)
    {
        if (written.plain) {
            for (const Source &source : scope_->sources) {
                written.order.push_back({source.alias + u'.' + rowName, false});
            }
        }
    }

    static QString selectText(const Select &select, const Written &written, const QString &values)
    {
        const QString from = written.from.isEmpty() ? QString() : u" FROM "_s + written.from;
        return (select.distinct ? u"SELECT DISTINCT "_s : u"SELECT "_s) + values + from + whereClause(written.where) +
               written.grouping + orderBy(written.order, false) + written.limit;
    }

    QString rowNumbers() const
    {
        QString text;
        for (const Source &source : scope_->sources) {
            text += source.alias + u'.' + rowName + u", "_s;
        }
        return text;
    }

    void planSelect(const Select &select)
    {
        const Scope scope = openScope(select);
        scope_ = &scope;
        const Written written = writeSelect(select);
        plan_.keyset = written.plain;
        plan_.columns = written.columns;
        nameColumns();
        const QString values = (plan_.keyset ? rowNumbers() : QString()) + written.values.join(u", "_s);
        plan_.scan = StatementPool(selectText(select, written, values).toUtf8());
        if (plan_.keyset) {
            planLookups(select, written, values);
        }
        scope_ = nullptr;
    }

    void planLookups(const Select &select, const Written &written, const QString &values)
    {
        QString rows;
        auto parameter = static_cast<int>(tokens_.literals.size());
        for (const Source &source : scope_->sources) {
            plan_.tables.push_back(source.table);
            rows += (rows.isEmpty() ? QString() : u" AND "_s) + source.alias + u'.' + rowName + u" = ?"_s +
                    QString::number(++parameter);
        }
        plan_.keys = StatementPool(selectText(select, written, rowNumbers().chopped(2)).toUtf8());
        const QString start = u"SELECT "_s + values + u" FROM "_s + written.from + u" WHERE "_s;
        plan_.seek = StatementPool((start + rows).toUtf8());
        if (plan_.tables.size() == 1 && select.topLiteral < 0) {
            // The plus sign keeps the engine from searching by this condition instead of going by the order.
            const QString older =
                u'+' + scope_->sources[0].alias + u'.' + rowName + u" <= ?"_s + QString::number(parameter);
            plan_.last = StatementPool(
                (start + both(written.where, older) + orderBy(written.order, true) + u" LIMIT 1"_s).toUtf8());
        }
    }

    /// Columns of one name are told apart by their tables.
    void nameColumns()
    {
        const auto &columns = plan_.columns;
        std::vector<bool> shared(columns.size());
        for (size_t i = 0; i < columns.size(); ++i) {
            shared[i] = std::any_of(columns.begin(), columns.end(), [&](const ResultColumn &other) {
                return &other != &columns[i] &&
                       other.field.name.compare(columns[i].field.name, Qt::CaseInsensitive) == 0;
            });
        }
        for (size_t i = 0; i < columns.size(); ++i) {
            if (shared[i] && !columns[i].qualifiedName.isEmpty()) {
                plan_.columns[i].field.name = columns[i].qualifiedName;
            }
        }
    }

    void planDelete(const Statement &statement)
    {
        const Scope scope = openScope(statement.select);
        scope_ = &scope;
        Written written;
        writeFrom(statement.select, written);
        if (statement.select.where) {
            written.where = both(written.where, writeCondition(*statement.select.where));
        }
        refuseAggregate();
        const Source &target = sourceNamed(statement.table);
        plan_.target = target.table;
        const QString name = quoted(target.table->name);
        if (scope.sources.size() == 1) {
            plan_.scan = StatementPool((u"DELETE FROM "_s + written.from + whereClause(written.where)).toUtf8());
        } else {
            const QString rows =
                u"SELECT "_s + target.alias + u'.' + rowName + u" FROM "_s + written.from + whereClause(written.where);
            plan_.scan =
                StatementPool((u"DELETE FROM "_s + name + u" WHERE "_s + rowName + u" IN ("_s + rows + u')').toUtf8());
        }
        scope_ = nullptr;
    }

    const Source &sourceNamed(const QString &name) const
    {
        const auto &sources = scope_->sources;
        const auto found = std::find_if(sources.begin(), sources.end(), [&name](const Source &source) {
            return name.isEmpty() || source.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == sources.end()) {
            runtime::raise(3078, {name});
        }
        return *found;
    }

    void planUpdate(const Statement &statement)
    {
        const Scope scope = openScope(statement.select);
        scope_ = &scope;
        Written written;
        writeFrom(statement.select, written);
        const Source &target = updatedSource(statement.columns.front());
        plan_.target = target.table;
        for (qsizetype i = 0; i < statement.columns.size(); ++i) {
            plan_.targetPlaces.push_back(targetPlace(statement.columns[i]));
            addColumn(written, write(statement.select.items[static_cast<size_t>(i)].expression), statement.columns[i],
                      false);
        }
        if (statement.select.where) {
            written.where = both(written.where, writeCondition(*statement.select.where));
        }
        refuseAggregate();
        plan_.columns = written.columns;
        const QString values = target.alias + u'.' + rowName + u", "_s + written.values.join(u", "_s);
        plan_.scan =
            StatementPool((u"SELECT "_s + values + u" FROM "_s + written.from + whereClause(written.where)).toUtf8());
        scope_ = nullptr;
    }

    const Source &updatedSource(const QString &column) const
    {
        const auto &sources = scope_->sources;
        const auto found = std::find_if(sources.begin(), sources.end(),
                                        [&column](const Source &source) { return source.table->place(column) >= 0; });
        return found != sources.end() ? *found : sources.front();
    }

    int targetPlace(const QString &column)
    {
        const int place = plan_.target->place(column);
        if (place < 0) {
            Expression name;
            name.kind = Expression::Kind::Name;
            name.text = column;
            write(name);
        }
        return place;
    }

    void planInsert(const Statement &statement)
    {
        plan_.target = definedTable(statement.table, 3078);
        const Scope scope = openScope(statement.select);
        scope_ = &scope;
        const Written written = writeSelect(statement.select);
        scope_ = nullptr;
        plan_.columns = written.columns;
        plan_.scan = StatementPool(selectText(statement.select, written, written.values.join(u", "_s)).toUtf8());
        for (const QString &column : statement.columns) {
            plan_.targetPlaces.push_back(plan_.target->place(column));
            if (plan_.targetPlaces.back() < 0) {
                throw runtime::RuntimeError(3127,
                                            u"O campo '%1' da instrução INSERT INTO é desconhecido."_s.arg(column));
            }
        }
        if (statement.columns.isEmpty()) {
            for (size_t place = 0; place < plan_.target->fields.size(); ++place) {
                plan_.targetPlaces.push_back(static_cast<int>(place));
            }
        }
        if (plan_.targetPlaces.size() != plan_.columns.size()) {
            throw runtime::RuntimeError(3346, u"O número de valores e o de campos de destino não são iguais."_s);
        }
    }

    const Schema &schema_;
    const Tokens &tokens_;
    Plan plan_;
    int aliases_ = 0;
};

} // namespace

Plan rewrite(const Schema &schema, const Tokens &tokens, QStringView statement)
{
    return Rewriter(schema, tokens, statement).run(parse(tokens, statement));
}

QString toSqlite(const Schema &schema, const QString &statement)
{
    return QString::fromUtf8(rewrite(schema, tokenize(statement), statement).scan.sql());
}

} // namespace dao
