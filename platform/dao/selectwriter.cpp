#include "platform/dao/selectwriter.h"

#include "platform/dao/functions.h"
#include "platform/dao/types.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

bool isOuter(const FromTable &table)
{
    return table.join == u"LEFT" || table.join == u"RIGHT" ||
           std::any_of(table.group.begin(), table.group.end(), isOuter);
}

bool hasOuter(const std::vector<FromTable> &tables)
{
    return std::any_of(tables.begin(), tables.end(), isOuter);
}

OrderTerm ordered(const Term &term, const QString &sql, bool descending)
{
    return {sql, term.type == FieldType::Text, descending, false};
}

/// The values of rows that are told by their order, and what the order goes by, under names of their own.
QStringList rankedValues(const Written &written, const QStringList &values)
{
    QStringList named;
    for (const QString &value : values) {
        named.append(value + u" AS c"_s + QString::number(named.size()));
    }
    for (size_t i = 0; i < written.order.size(); ++i) {
        const OrderTerm &term = written.order[i];
        named.append(term.sql + (term.text ? QString(collate) : QString()) + u" AS o"_s + QString::number(i));
    }
    return named;
}

/// The rows up to a place in the order, and those that stand at that place with it.
QString rankedText(const Select &select, const QString &inner, qsizetype values, const Written &written)
{
    std::vector<OrderTerm> outer;
    for (const OrderTerm &term : written.order) {
        outer.push_back({u'o' + QString::number(outer.size()), term.text, term.descending, term.nullLast});
    }
    const auto told = static_cast<std::ptrdiff_t>(select.orderBy.empty() ? outer.size() : select.orderBy.size());
    const std::vector<OrderTerm> ranking(outer.begin(), outer.begin() + told);
    const QString rank = ranking.empty() ? u"row_number() OVER ()"_s : u"rank() OVER ("_s + orderBy(ranking) + u')';
    QStringList names;
    for (qsizetype i = 0; i < values; ++i) {
        names.append(u'c' + QString::number(i));
    }
    const QString most = u'?' + QString::number(select.topLiteral + 1);
    const QString within = select.percent ? u"(place - 1) * 100 < total * "_s + most : u"place <= "_s + most;
    return u"SELECT "_s + names.join(u", "_s) + u" FROM (SELECT *, "_s + rank +
           u" AS place, count(*) OVER () AS total FROM ("_s + inner + u")) WHERE "_s + within + orderBy(outer);
}

bool isAggregateCall(const Expression &expression)
{
    const Function *const function =
        expression.kind == Expression::Kind::Call ? findFunction(expression.text) : nullptr;
    return function != nullptr && isAggregate(*function);
}

/// A SELECT of a column of one row, the one of those found that was stored first or last.
struct EndRow {
    Select select;
    bool last = false;
};

/// The row that gives "SELECT Last(column) FROM table WHERE ..." its value; none where the SELECT is another one.
std::optional<EndRow> endRowOf(const Select &select)
{
    const bool plain = select.items.size() == 1 && select.from.size() == 1 && select.from.front().group.empty() &&
                       select.groupBy.empty() && !select.having && select.orderBy.empty() && !select.distinct &&
                       select.topLiteral < 0 && select.unions.empty();
    if (!plain || !isAggregateCall(select.items.front().expression)) {
        return std::nullopt;
    }
    const Expression &call = select.items.front().expression;
    const bool last = call.text.compare("LAST"_L1, Qt::CaseInsensitive) == 0;
    const bool first = call.text.compare("FIRST"_L1, Qt::CaseInsensitive) == 0;
    if (!(first || last) || call.parts.size() != 1 || call.parts.front().kind != Expression::Kind::Name) {
        return std::nullopt;
    }
    EndRow row{select, last};
    row.select.items.front().expression = call.parts.front();
    return row;
}

/// Read from its end, an index gives the row without the ones before it.
QString endRowText(const Written &written, bool last)
{
    return u"SELECT "_s + written.values().constFirst() + u" FROM "_s + written.from + whereClause(written.where) +
           orderBy(written.order, last) + u" LIMIT 1"_s;
}

} // namespace

QStringList Written::values() const
{
    QStringList list;
    for (const Term &term : terms) {
        list.append(distinct ? ExpressionWriter::asKey(term) : ExpressionWriter::asValue(term));
    }
    return list;
}

QString orderBy(const std::vector<OrderTerm> &order, bool reversed)
{
    QString text;
    for (const OrderTerm &term : order) {
        text += (text.isEmpty() ? u" ORDER BY "_s : u", "_s) + term.sql + (term.text ? QString(collate) : QString()) +
                (term.descending != reversed ? u" DESC"_s : QString()) + (term.nullLast ? u" NULLS LAST"_s : QString());
    }
    return text;
}

QString whereClause(const QString &condition)
{
    return condition.isEmpty() ? QString() : u" WHERE "_s + condition;
}

QString both(const QString &first, const QString &second)
{
    return first.isEmpty() ? second : second.isEmpty() ? first : u'(' + first + u") AND "_s + second;
}

SelectWriter::SelectWriter(const Schema &schema, const Tokens &tokens, QStringView text)
    : ExpressionWriter(tokens.literals, text), schema_(schema)
{
}

Term SelectWriter::writeSubselect(const Select &select, Wanted wanted)
{
    // Without rows the one is a row of Null, the other none: as a value they are the same.
    const auto endRow = wanted == Wanted::Value ? endRowOf(select) : std::nullopt;
    const bool aggregate = std::exchange(sawAggregate_, false);
    const bool bare = std::exchange(sawBareColumn_, false);
    const Scope scope = openScope(select);
    const Scope *const outer = std::exchange(scope_, &scope);
    const Written written = writeSelect(endRow ? endRow->select : select);
    scope_ = outer;
    sawAggregate_ = aggregate;
    sawBareColumn_ = bare;
    if (written.columns.size() != 1 && wanted != Wanted::Rows) {
        runtime::raise(3306);
    }
    Term term;
    term.sql =
        u'(' + (endRow ? endRowText(written, endRow->last) : selectText(select, written, written.values())) + u')';
    term.type = written.columns.front().type;
    return term;
}

std::shared_ptr<const Table> SelectWriter::definedTable(const QString &name, int error) const
{
    auto table = schema_.find(name);
    if (!table) {
        runtime::raise(error, {name});
    }
    return table;
}

Scope SelectWriter::openScope(const Select &select)
{
    Scope scope;
    scope.outer = scope_;
    openSources(select.from, scope);
    return scope;
}

void SelectWriter::openSources(const std::vector<FromTable> &tables, Scope &scope)
{
    for (const FromTable &from : tables) {
        if (!from.group.empty()) {
            openSources(from.group, scope);
            continue;
        }
        Source source;
        source.table = definedTable(from.table, 3078);
        source.name = from.alias.isEmpty() ? source.table->name : from.alias;
        source.alias = u't' + QString::number(aliases_++);
        if (std::any_of(scope.sources.begin(), scope.sources.end(), [&source](const Source &other) {
                return other.name.compare(source.name, Qt::CaseInsensitive) == 0;
            })) {
            fail(u"Tabela repetida na cláusula FROM"_s);
        }
        reads_.append(source.table->name);
        scope.sources.push_back(std::move(source));
    }
}

void SelectWriter::writeFrom(const Select &select, Written &written)
{
    const bool outer = hasOuter(select.from);
    size_t source = 0;
    writeJoins(select.from, outer, false, source, written);
    written.plain = !outer;
}

/// Inner joins become a list of tables with conditions, so that the engine is free in its order of search. Beside an
/// outer join all brackets and conditions stay in their places; the engine knows row numbers behind brackets as columns
/// only.
void SelectWriter::writeJoins(const std::vector<FromTable> &tables, bool outer, bool nested, size_t &source,
                              Written &written)
{
    const size_t first = source;
    for (size_t i = 0; i < tables.size(); ++i) {
        const FromTable &from = tables[i];
        const bool plain = from.join.isEmpty() || from.join == u"INNER";
        written.from += i == 0 ? QString() : plain ? u" JOIN "_s : u' ' + from.join + u" JOIN "_s;
        if (!from.group.empty()) {
            written.from += outer ? u"("_s : QString();
            writeJoins(from.group, outer, outer, source, written);
            written.from += outer ? u")"_s : QString();
        } else {
            const Source &known = scope_->sources[source++];
            const QString name = quoted(known.table->name);
            written.from +=
                (nested ? u"(SELECT %1 AS %1, * FROM %2)"_s.arg(rowName, name) : name) + u" AS "_s + known.alias;
        }
        if (from.on && outer) {
            written.from += u" ON "_s + writeJoinCondition(*from.on, first, source);
        } else if (from.on) {
            written.where = both(written.where, writeJoinCondition(*from.on, first, source));
        }
    }
}

QString SelectWriter::writeJoinCondition(const Expression &on, size_t first, size_t end)
{
    Scope joined = *scope_;
    joined.firstJoined = first;
    joined.endJoined = end;
    const Scope *const whole = std::exchange(scope_, &joined);
    QString sql = writeCondition(on);
    scope_ = whole;
    return sql;
}

void SelectWriter::writeWhere(const Select &select, Written &written)
{
    if (select.where) {
        written.where = both(written.where, writeCondition(*select.where));
    }
    refuseAggregate();
}

Written SelectWriter::writeSelect(const Select &select)
{
    Written written;
    written.distinct = select.distinct;
    sawAggregate_ = false;
    writeFrom(select, written);
    writeWhere(select, written);
    const std::vector<Term> groups = writeGrouping(select, written);
    const auto read = reads_.size();
    writeItems(select, written);
    written.asksInColumns = reads_.size() > read;
    if (select.having) {
        written.grouping += u" HAVING "_s + writeCondition(*select.having);
    }
    for (const OrderItem &item : select.orderBy) {
        written.order.push_back(writeOrder(select, item, written));
    }
    addStandingOrder(select, groups, written);
    if (select.percent && std::get<qint32>(literalAt(select.topLiteral)) > 100) {
        runtime::raise(3308);
    }
    return written;
}

void SelectWriter::refuseAggregate()
{
    if (sawAggregate_) {
        runtime::raise(3096);
    }
    sawBareColumn_ = false;
}

std::vector<Term> SelectWriter::writeGrouping(const Select &select, Written &written)
{
    std::vector<Term> groups;
    QStringList keys;
    for (const Expression &expression : select.groupBy) {
        groups.push_back(write(expression));
        keys.append(asKey(groups.back()));
    }
    written.grouping = keys.isEmpty() ? QString() : u" GROUP BY "_s + keys.join(u", "_s);
    refuseAggregate();
    return groups;
}

void SelectWriter::writeItems(const Select &select, Written &written)
{
    bool loose = false;
    bool star = false;
    for (const SelectItem &item : select.items) {
        sawBareColumn_ = false;
        if (item.star) {
            star = true;
            writeStar(item.starTable, written);
            continue;
        }
        const Term term = write(item.expression);
        loose = loose || (sawBareColumn_ && !isCovered(item.expression, select.groupBy));
        addColumn(written, term, columnName(item, term, written.columns.size()), item.alias.isEmpty());
    }
    const bool grouped = sawAggregate_ || !select.groupBy.empty();
    if (grouped && (star || loose)) {
        runtime::raise(star ? 3121 : 3122);
    }
}

/// Whether a value is the same for all rows of a group.
bool SelectWriter::isCovered(const Expression &expression, const std::vector<Expression> &groups)
{
    using Kind = Expression::Kind;
    if (std::any_of(groups.begin(), groups.end(), [&](const Expression &group) { return isSame(expression, group); })) {
        return true;
    }
    if (expression.kind == Kind::Name) {
        sawBareColumn_ = false;
        write(expression);
        return !sawBareColumn_;
    }
    return isAggregateCall(expression) || std::all_of(expression.parts.begin(), expression.parts.end(),
                                                      [&](const Expression &part) { return isCovered(part, groups); });
}

bool SelectWriter::isSame(const Expression &left, const Expression &right)
{
    using Kind = Expression::Kind;
    if (left.kind != right.kind || left.negated != right.negated || left.select || right.select) {
        return false;
    }
    if (left.kind == Kind::Name) {
        return write(left).sql == write(right).sql;
    }
    if (left.kind == Kind::Literal) {
        return literalAt(left.literal) == literalAt(right.literal);
    }
    return left.text == right.text &&
           std::equal(left.parts.begin(), left.parts.end(), right.parts.begin(), right.parts.end(),
                      [this](const Expression &a, const Expression &b) { return isSame(a, b); });
}

QString SelectWriter::columnName(const SelectItem &item, const Term &term, size_t place) const
{
    if (!item.alias.isEmpty()) {
        return item.alias;
    }
    if (item.expression.kind == Expression::Kind::Name) {
        return term.table >= 0 ? fieldOf(term).name : item.expression.text;
    }
    return u"Expr"_s + QString::number(1000 + place);
}

const Field &SelectWriter::fieldOf(const Term &term) const
{
    return scope_->sources[static_cast<size_t>(term.table)].table->fields[static_cast<size_t>(term.place)];
}

void SelectWriter::addColumn(Written &written, const Term &term, const QString &name, bool named)
{
    ResultColumn column;
    if (term.table >= 0) {
        column.field = fieldOf(term);
        column.qualifiedName = named ? scope_->sources[static_cast<size_t>(term.table)].name + u'.' + name : QString();
        column.place = term.place;
    } else {
        column.field.type = term.type.value_or(FieldType::Text);
        column.field.size = column.field.type == FieldType::Text ? longestText : 0;
    }
    column.field.name = name;
    column.type = term.type;
    written.columns.push_back(std::move(column));
    written.terms.push_back(term);
}

void SelectWriter::writeStar(const QString &table, Written &written)
{
    bool found = false;
    for (size_t i = 0; i < scope_->sources.size(); ++i) {
        const Source &source = scope_->sources[i];
        if (!table.isEmpty() && source.name.compare(table, Qt::CaseInsensitive) != 0) {
            continue;
        }
        found = true;
        for (size_t place = 0; place < source.table->fields.size(); ++place) {
            const Field &field = source.table->fields[place];
            const Term term{source.alias + u'.' + quoted(field.name),
                            valueType(field.type),
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

std::optional<size_t> SelectWriter::columnAt(const Expression &expression, size_t columns) const
{
    if (expression.kind != Expression::Kind::Literal) {
        return std::nullopt;
    }
    const auto *const place = std::get_if<qint32>(&literalAt(expression.literal));
    if (place == nullptr || *place < 1 || static_cast<size_t>(*place) > columns) {
        fail(u"Erro de sintaxe na cláusula ORDER BY"_s);
    }
    return static_cast<size_t>(*place - 1);
}

/// A number stands for the column of the result at that place; a name may be one that the statement itself gave.
OrderTerm SelectWriter::writeOrder(const Select &select, const OrderItem &item, const Written &written)
{
    const Expression &expression = item.expression;
    std::optional<size_t> place = columnAt(expression, written.columns.size());
    const bool bare = expression.kind == Expression::Kind::Name && expression.table.isEmpty();
    for (size_t i = 0; i < select.items.size() && bare && !place; ++i) {
        const QString &alias = select.items[i].alias;
        if (!alias.isEmpty() && alias.compare(expression.text, Qt::CaseInsensitive) == 0 &&
            select.items.size() == written.columns.size()) {
            place = i;
        }
    }
    const Term term = place ? written.terms[*place] : write(expression);
    const QString sql = (alwaysSorts_ ? u"+"_s : QString()) + asValue(term);
    if (select.distinct && select.topLiteral >= 0 && !written.values().contains(asKey(term))) {
        runtime::raise(3093);
    }
    return ordered(term, sql, item.descending);
}

/// Equal keys keep their order of arrival. Grouped and distinct rows have none, but an order that no index changes.
void SelectWriter::addStandingOrder(const Select &select, const std::vector<Term> &groups, Written &written) const
{
    const bool rows = !sawAggregate_ && groups.empty() && !select.having && !select.distinct && !select.from.empty();
    if (rows) {
        addStorageOrder(written);
    } else if (select.distinct || !groups.empty()) {
        for (const Term &term : select.distinct ? written.terms : groups) {
            written.order.push_back(ordered(term, asValue(term), false));
        }
    }
    written.plain = written.plain && rows;
}

void SelectWriter::addStorageOrder(Written &written) const
{
    for (const Source &source : scope_->sources) {
        written.order.push_back({rowNumber(source), false, false, !written.plain});
    }
}

QStringList SelectWriter::rowNumbers() const
{
    QStringList list;
    for (const Source &source : scope_->sources) {
        list.append(rowNumber(source));
    }
    return list;
}

QString SelectWriter::selectText(const Select &select, const Written &written, const QStringList &values)
{
    const bool ranked = select.topLiteral >= 0 && (select.percent || !select.orderBy.empty());
    const QStringList shown = ranked ? rankedValues(written, values) : values;
    const QString text = (select.distinct ? u"SELECT DISTINCT "_s : u"SELECT "_s) + shown.join(u", "_s) +
                         (written.from.isEmpty() ? QString() : u" FROM "_s + written.from) +
                         whereClause(written.where) + written.grouping;
    if (ranked) {
        return rankedText(select, text, values.size(), written);
    }
    const QString limit = select.topLiteral < 0 ? QString() : u" LIMIT ?"_s + QString::number(select.topLiteral + 1);
    return text + orderBy(written.order) + limit;
}

} // namespace dao
