#include "platform/dao/rewriter.h"

#include "platform/dao/parser.h"
#include "platform/dao/unionwriter.h"
#include "platform/runtime/error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

class Rewriter : public UnionWriter
{
public:
    Rewriter(const Schema &schema, const Tokens &tokens, QStringView text, bool alwaysSorts)
        : UnionWriter(schema, tokens, text), tokens_(tokens)
    {
        alwaysSorts_ = alwaysSorts;
    }

    Plan run(Statement statement)
    {
        plan_.kind = statement.kind;
        dispatch(statement);
        finish();
        plan_.definition = std::move(statement);
        plan_.binds = std::move(binds_);
        plan_.reads = std::move(reads_);
        return std::move(plan_);
    }

private:
    void dispatch(const Statement &statement)
    {
        switch (statement.kind) {
        case StatementKind::Select:
            return planSelect(statement.select);
        case StatementKind::SelectInto:
            return planSelectInto(statement);
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
        case StatementKind::CreateIndex:
            plan_.target = definedTable(statement.table, 3371);
            return;
        case StatementKind::DropTable:
        case StatementKind::DropIndex:
            plan_.target = definedTable(statement.table, 3376);
            return;
        }
    }

    void planSelect(const Select &select)
    {
        if (!select.unions.empty()) {
            planRows(select);
            return;
        }
        const Scope scope = openScope(select);
        scope_ = &scope;
        const Written written = writeSelect(select);
        plan_.keyset = written.plain;
        plan_.asksInColumns = written.asksInColumns;
        plan_.columns = written.columns;
        nameColumns();
        const QStringList values = (plan_.keyset ? rowNumbers() : QStringList()) + written.values();
        plan_.scan = StatementPool(selectText(select, written, values).toUtf8());
        if (plan_.keyset) {
            planLookups(select, written, values.join(u", "_s));
        }
        scope_ = nullptr;
    }

    void planLookups(const Select &select, const Written &written, const QString &values)
    {
        QString rows;
        auto parameter = static_cast<int>(tokens_.literals.size());
        for (const Source &source : scope_->sources) {
            plan_.tables.push_back(source.table);
            rows = both(rows, rowNumber(source) + u" = ?"_s + QString::number(++parameter));
        }
        plan_.pieces = {rowNumbers(), written.values(), written.from, written.where};
        plan_.keys = StatementPool(selectText(select, written, rowNumbers()).toUtf8());
        const QString start = u"SELECT "_s + values + u" FROM "_s + written.from + u" WHERE "_s;
        plan_.seek = StatementPool((start + rows).toUtf8());
        if (plan_.tables.size() == 1 && select.topLiteral < 0) {
            // The plus sign keeps the engine from searching by this condition instead of going by the order.
            const QString older = u'+' + rowNumbers().constFirst() + u" <= ?"_s + QString::number(parameter);
            plan_.last = StatementPool(
                (start + both(written.where, older) + orderBy(written.order, true) + u" LIMIT 1"_s).toUtf8());
        }
    }

    /// What the rows of a SELECT show, without their identities. False where they are no rows of tables.
    bool planRows(const Select &select)
    {
        if (!select.unions.empty()) {
            plan_.scan = StatementPool(writeUnion(select, plan_.columns).toUtf8());
            return false;
        }
        const Scope scope = openScope(select);
        scope_ = &scope;
        const Written written = writeSelect(select);
        scope_ = nullptr;
        plan_.columns = written.columns;
        plan_.scan = StatementPool(selectText(select, written, written.values()).toUtf8());
        return written.plain;
    }

    /// The new table takes the columns as they are; a counter goes on counting where its rows stay what they are.
    void planSelectInto(const Statement &statement)
    {
        const bool rows = planRows(statement.select);
        nameColumns();
        for (const ResultColumn &column : plan_.columns) {
            Field field = column.field;
            field.name.replace(u'.', u'_');
            field.attributes = rows ? field.attributes : 0;
            plan_.takers.push_back(std::move(field));
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
        writeWhere(statement.select, written);
        const Source &target = sourceNamed(statement.table);
        plan_.target = target.table;
        const QString start = u"DELETE FROM "_s;
        const QString where = whereClause(written.where);
        const QString rows = u"SELECT "_s + rowNumber(target) + u" FROM "_s + written.from + where;
        plan_.keys = StatementPool(rows.toUtf8());
        if (scope.sources.size() == 1) {
            plan_.scan = StatementPool((start + written.from + where).toUtf8());
        } else {
            plan_.scan = StatementPool(
                (start + quoted(target.table->name) + u" WHERE "_s + rowName + u" IN ("_s + rows + u')').toUtf8());
        }
        scope_ = nullptr;
    }

    /// Without a name there has to be one table only.
    const Source &sourceNamed(const QString &name) const
    {
        const auto &sources = scope_->sources;
        if (name.isEmpty() && sources.size() > 1) {
            runtime::raise(3128);
        }
        const auto found = std::find_if(sources.begin(), sources.end(), [&name](const Source &source) {
            return name.isEmpty() || source.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == sources.end()) {
            runtime::raise(3078, {name});
        }
        return *found;
    }

    /// The rows in the order of storage: where several of them change one row of a table, the last one stays.
    void planUpdate(const Statement &statement)
    {
        const Scope scope = openScope(statement.select);
        scope_ = &scope;
        Written written;
        writeFrom(statement.select, written);
        for (size_t i = 0; i < statement.targets.size(); ++i) {
            addAssignment(statement.targets[i], i);
            addColumn(written, write(statement.select.items[i].expression), {}, false);
        }
        writeWhere(statement.select, written);
        addStorageOrder(written);
        plan_.columns = written.columns;
        plan_.hidden = static_cast<int>(scope.sources.size());
        const QString values = (rowNumbers() + written.values()).join(u", "_s);
        plan_.scan = StatementPool(
            (u"SELECT "_s + values + u" FROM "_s + written.from + whereClause(written.where) + orderBy(written.order))
                .toUtf8());
        scope_ = nullptr;
    }

    /// Finds the field that takes a value. A name that means none is reported with the others at the end.
    void addAssignment(const Expression &name, size_t column)
    {
        const Term taker = find(*scope_, name, true);
        if (taker.sql.isEmpty()) {
            write(name);
            plan_.takers.emplace_back();
            return;
        }
        const auto &table = scope_->sources[static_cast<size_t>(taker.table)].table;
        const Field &field = table->fields[static_cast<size_t>(taker.place)];
        if (field.isCounter()) {
            runtime::raise(3113, {field.name});
        }
        plan_.takers.push_back(field);
        const auto known = std::find_if(plan_.changes.begin(), plan_.changes.end(),
                                        [&taker](const RowChange &change) { return change.rowNumber == taker.table; });
        RowChange &change =
            known != plan_.changes.end() ? *known : plan_.changes.emplace_back(RowChange{table, taker.table, {}, {}});
        if (std::find(change.places.begin(), change.places.end(), taker.place) != change.places.end()) {
            runtime::raise(3063, {field.name});
        }
        change.places.push_back(taker.place);
        change.columns.push_back(column);
    }

    /// VALUES go by position, the columns of a SELECT by their names.
    void planInsert(const Statement &statement)
    {
        plan_.target = definedTable(statement.table, 3078);
        planRows(statement.select);
        const auto &fields = plan_.target->fields;
        QStringList names = statement.columns;
        for (const ResultColumn &column : plan_.columns) {
            if (statement.columns.isEmpty() && statement.byName) {
                names.append(column.field.name);
            }
        }
        for (const Field &field : fields) {
            if (statement.columns.isEmpty() && !statement.byName) {
                names.append(field.name);
            }
        }
        if (static_cast<size_t>(names.size()) != plan_.columns.size()) {
            runtime::raise(3346);
        }
        for (const QString &name : std::as_const(names)) {
            addTaker(name);
        }
    }

    void addTaker(const QString &name)
    {
        const int place = plan_.target->place(name);
        if (place < 0) {
            runtime::raise(3127, {name});
        }
        auto &places = plan_.targetPlaces;
        if (std::find(places.begin(), places.end(), place) != places.end()) {
            runtime::raise(3063, {name});
        }
        places.push_back(place);
        plan_.takers.push_back(plan_.target->fields[static_cast<size_t>(place)]);
    }

    const Tokens &tokens_;
    Plan plan_;
};

} // namespace

Plan rewrite(const Schema &schema, const Tokens &tokens, QStringView statement, bool alwaysSorted)
{
    return Rewriter(schema, tokens, statement, alwaysSorted).run(parse(tokens, statement));
}

QString toSqlite(const Schema &schema, const QString &statement)
{
    return QString::fromUtf8(rewrite(schema, tokenize(statement), statement).scan.sql());
}

} // namespace dao
