#include "tests/dao/recordsetmodel.h"

#include "platform/runtime/runtime.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using runtime::Null;
using runtime::Value;

namespace model
{

namespace
{

constexpr int longestName = 10;

using Rows = std::vector<const Row *>;

bool isText(const Value &value)
{
    return std::holds_alternative<QString>(value);
}

/// Null first, then by number, or by text without regard to case.
int compare(const Value &left, const Value &right)
{
    if (runtime::IsNull(left) || runtime::IsNull(right)) {
        return static_cast<int>(runtime::IsNull(right)) - static_cast<int>(runtime::IsNull(left));
    }
    if (isText(left)) {
        return std::get<QString>(left).compare(std::get<QString>(right), Qt::CaseInsensitive);
    }
    const double difference = runtime::CDbl(left) - runtime::CDbl(right);
    return difference < 0 ? -1 : static_cast<int>(difference > 0);
}

bool equal(const Value &left, const Value &right)
{
    return !runtime::IsNull(left) && !runtime::IsNull(right) && compare(left, right) == 0;
}

Value valueOf(const Row &row, int field)
{
    if (field >= 0) {
        return row[static_cast<size_t>(field)];
    }
    return runtime::IsNull(row[Price]) ? row[Price] : Value(2 * runtime::CDbl(row[Price]));
}

/// The rows of all the source's tables, each with each, in their order of arrival.
std::vector<std::vector<int>> combinations(const Tables &tables, const Source &source)
{
    std::vector<std::vector<int>> found{{}};
    for (const TableName table : source.tables) {
        std::vector<std::vector<int>> longer;
        for (const auto &start : found) {
            for (const auto &[number, row] : tables[table].rows) {
                longer.push_back(start);
                longer.back().push_back(number);
            }
        }
        found = std::move(longer);
    }
    return found;
}

Rows rowsOf(const std::vector<int> &key, const Tables &tables, const Source &source)
{
    Rows rows;
    for (size_t i = 0; i < key.size(); ++i) {
        rows.push_back(tables[source.tables[i]].find(key[i]));
    }
    return rows;
}

const Row &rowOf(const Rows &rows, const Source &source, TableName table)
{
    const auto place = std::find(source.tables.begin(), source.tables.end(), table) - source.tables.begin();
    return *rows[static_cast<size_t>(place)];
}

bool before(const Rows &left, const Rows &right, const Source &source)
{
    for (const auto &[column, descending] : source.order) {
        const int order = compare(valueOf(rowOf(left, source, column.table), column.field),
                                  valueOf(rowOf(right, source, column.table), column.field));
        if (order != 0) {
            return descending ? order > 0 : order < 0;
        }
    }
    return false;
}

std::vector<std::vector<int>> keysOf(const Tables &tables, const Source &source)
{
    auto keys = combinations(tables, source);
    std::erase_if(keys,
                  [&](const auto &key) { return source.holds && !source.holds(rowsOf(key, tables, source), tables); });
    std::stable_sort(keys.begin(), keys.end(), [&](const auto &left, const auto &right) {
        return before(rowsOf(left, tables, source), rowsOf(right, tables, source), source);
    });
    keys.resize(std::min(keys.size(), static_cast<size_t>(source.most)));
    return keys;
}

/// What is found only when a row is written.
int errorOfWriting(const Value &value)
{
    const auto *const text = std::get_if<QString>(&value);
    if (text == nullptr) {
        return 0;
    }
    return text->isEmpty() ? 3315 : text->size() > longestName ? 3163 : 0;
}

std::vector<Row> countAndSum(const Tables &tables)
{
    double sum = 0;
    bool any = false;
    for (const auto &[number, row] : tables[Items].rows) {
        any = any || !runtime::IsNull(row[Price]);
        sum += runtime::IsNull(row[Price]) ? 0 : runtime::CDbl(row[Price]);
    }
    const auto count = static_cast<qint32>(tables[Items].rows.size());
    return {{Value(count), any ? Value(sum) : Value(Null{})}};
}

std::vector<Row> distinctGroups(const Tables &tables)
{
    std::vector<Row> found;
    for (const auto &[number, row] : tables[Items].rows) {
        found.push_back({row[Group]});
    }
    std::sort(found.begin(), found.end(), [](const Row &a, const Row &b) { return compare(a[0], b[0]) < 0; });
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

std::vector<Row> itemsAndNamesOfGroups(const Tables &tables)
{
    std::vector<Row> found;
    for (const auto &[number, item] : tables[Items].rows) {
        const auto before = found.size();
        for (const auto &[other, group] : tables[Groups].rows) {
            if (equal(item[Group], group[GroupCode])) {
                found.push_back({item[Code], group[GroupName]});
            }
        }
        if (found.size() == before) {
            found.push_back({item[Code], Null{}});
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const Row &a, const Row &b) {
        const int order = compare(a[0], b[0]);
        return order != 0 ? order < 0 : compare(a[1], b[1]) < 0;
    });
    return found;
}

bool sameGroup(const Rows &rows, const Tables & /*tables*/)
{
    return equal((*rows[0])[Group], (*rows[1])[GroupCode]);
}

bool knownGroup(const Rows &rows, const Tables &tables)
{
    const auto &groups = tables[Groups].rows;
    return std::any_of(groups.begin(), groups.end(),
                       [&](const auto &group) { return equal(group.second[GroupCode], (*rows[0])[Group]); });
}

const std::vector<Column> item{{Items, Code}, {Items, Name}, {Items, Price}, {Items, Group}, {Items, Active}};
const std::vector<Column> group{{Groups, GroupCode}, {Groups, GroupName}};

Source ofItems(const QString &tail, std::vector<Order> order, decltype(Source::holds) holds = {})
{
    return {.sql = u"SELECT * FROM Itens"_s + tail,
            .tables = {Items},
            .columns = item,
            .holds = std::move(holds),
            .order = std::move(order)};
}

std::vector<Source> plainSources()
{
    return {
        {.sql = u"Itens"_s, .tables = {Items}, .columns = item},
        ofItems(u" ORDER BY Codigo"_s, {{{Items, Code}}}),
        ofItems(u" ORDER BY Codigo DESC"_s, {{{Items, Code}, true}}),
        ofItems(u" ORDER BY Nome"_s, {{{Items, Name}}}),
        ofItems(u" ORDER BY Grupo DESC, Nome"_s, {{{Items, Group}, true}, {{Items, Name}}}),
        ofItems(u" WHERE Grupo = 2 ORDER BY Codigo"_s, {{{Items, Code}}},
                [](const Rows &rows, const Tables &) { return equal((*rows[0])[Group], qint32{2}); }),
        ofItems(u" WHERE Valor > 1"_s, {},
                [](const Rows &rows, const Tables &) {
                    const Value &price = (*rows[0])[Price];
                    return !runtime::IsNull(price) && runtime::CDbl(price) > 1;
                }),
        ofItems(u" WHERE Codigo = 0"_s, {}, [](const Rows &, const Tables &) { return false; }),
        ofItems(u" WHERE Grupo IN (SELECT Codigo FROM Grupos)"_s, {}, knownGroup),
        {.sql = u"SELECT TOP 3 * FROM Itens ORDER BY Codigo"_s,
         .tables = {Items},
         .columns = item,
         .order = {{{Items, Code}}},
         .most = 3},
        {.sql = u"SELECT Codigo, Valor * 2 AS Dobro, Valor FROM Itens ORDER BY Codigo"_s,
         .tables = {Items},
         .columns = {{Items, Code}, {Items, -1}, {Items, Price}},
         .order = {{{Items, Code}}}},
        {.sql = u"SELECT * FROM Grupos ORDER BY Codigo"_s,
         .tables = {Groups},
         .columns = group,
         .order = {{{Groups, GroupCode}}}},
        {.sql = u"Grupos"_s, .tables = {Groups}, .columns = group},
    };
}

std::vector<Source> joinsAndCopies()
{
    return {
        {.sql = u"SELECT Itens.*, Grupos.Nome FROM Itens INNER JOIN Grupos ON Itens.Grupo = Grupos.Codigo "
                u"ORDER BY Itens.Codigo, Grupos.Nome"_s,
         .tables = {Items, Groups},
         .columns =
             {{Items, Code}, {Items, Name}, {Items, Price}, {Items, Group}, {Items, Active}, {Groups, GroupName}},
         .holds = sameGroup,
         .order = {{{Items, Code}}, {{Groups, GroupName}}}},
        {.sql = u"SELECT Grupos.Nome, Itens.Valor FROM Itens, Grupos WHERE Itens.Grupo = Grupos.Codigo"_s,
         .tables = {Items, Groups},
         .columns = {{Groups, GroupName}, {Items, Price}},
         .holds = sameGroup},
        {.sql = u"SELECT Count(*), Sum(Valor) FROM Itens"_s, .copy = countAndSum},
        {.sql = u"SELECT DISTINCT Grupo FROM Itens ORDER BY Grupo"_s, .copy = distinctGroups},
        {.sql = u"SELECT Itens.Codigo, Grupos.Nome FROM Itens LEFT JOIN Grupos ON Itens.Grupo = Grupos.Codigo "
                u"ORDER BY Itens.Codigo, Grupos.Nome"_s,
         .copy = itemsAndNamesOfGroups},
    };
}

} // namespace

int Table::add(Row row)
{
    rows.emplace(++lastRow, std::move(row));
    return lastRow;
}

const Row *Table::find(int number) const
{
    const auto found = rows.find(number);
    return found == rows.end() ? nullptr : &found->second;
}

Tables emptyTables()
{
    return {Table{.name = u"Itens"_s, .fresh = {Null{}, Null{}, Null{}, Null{}, false}, .counts = true},
            Table{.name = u"Grupos"_s, .fresh = {Null{}, Null{}}}};
}

const std::vector<Source> &sources()
{
    static const std::vector<Source> all = [] {
        auto list = plainSources();
        const auto others = joinsAndCopies();
        list.insert(list.end(), others.begin(), others.end());
        return list;
    }();
    return all;
}

Set::Set(Tables &tables, const Source &source) : tables_(&tables), source_(&source)
{
    if (source.copy) {
        copy_ = source.copy(tables);
        keys_.assign(copy_.size(), {0});
    } else {
        keys_ = keysOf(tables, source);
    }
    place_ = keys_.empty() ? Place::After : Place::Within;
}

bool Set::deleted(int row) const
{
    return keys_[static_cast<size_t>(row)].empty();
}

bool Set::empty() const
{
    return std::all_of(keys_.begin(), keys_.end(), [](const auto &key) { return key.empty(); });
}

bool Set::bof() const
{
    return place_ == Place::Before || (place_ == Place::After && empty());
}

bool Set::eof() const
{
    return place_ == Place::After || (place_ == Place::Before && empty());
}

/// To the next row that stands, beginning with `row`, or off that end.
void Set::goFrom(int row, int step)
{
    const auto count = static_cast<int>(keys_.size());
    while (row >= 0 && row < count && deleted(row)) {
        row += step;
    }
    row_ = row;
    place_ = row < 0 ? Place::Before : row < count ? Place::Within : Place::After;
}

int Set::moveFirst()
{
    mode_ = Mode::Reading;
    if (empty()) {
        return 3021;
    }
    goFrom(0, 1);
    return 0;
}

int Set::moveLast()
{
    mode_ = Mode::Reading;
    if (empty()) {
        return 3021;
    }
    goFrom(static_cast<int>(keys_.size()) - 1, -1);
    return 0;
}

int Set::moveNext()
{
    mode_ = Mode::Reading;
    if (eof()) {
        return 3021;
    }
    goFrom(place_ == Place::Before ? 0 : row_ + 1, 1);
    return 0;
}

int Set::movePrevious()
{
    mode_ = Mode::Reading;
    if (bof()) {
        return 3021;
    }
    goFrom(place_ == Place::After ? static_cast<int>(keys_.size()) - 1 : row_ - 1, -1);
    return 0;
}

const Row *Set::current(size_t table) const
{
    const auto &key = keys_[static_cast<size_t>(row_)];
    return key.empty() ? nullptr : (*tables_)[source_->tables[table]].find(key[table]);
}

bool Set::gone() const
{
    for (size_t table = 0; table < source_->tables.size(); ++table) {
        if (current(table) == nullptr) {
            return true;
        }
    }
    return false;
}

int Set::addNew()
{
    if (!writable()) {
        return 3027;
    }
    buffer_.assign(table().fresh.begin(), table().fresh.end());
    if (table().counts) {
        buffer_[0] = ++table().counter;
    }
    mode_ = Mode::Adding;
    return 0;
}

/// Gives up the row being written; the error where there is no row to be changed, or 0.
int Set::refusal()
{
    if (!writable()) {
        return 3027;
    }
    mode_ = Mode::Reading;
    if (place_ != Place::Within) {
        return 3021;
    }
    return gone() ? 3167 : 0;
}

int Set::edit()
{
    if (const int error = refusal(); error != 0) {
        return error;
    }
    buffer_.assign(table().fresh.size(), std::nullopt);
    mode_ = Mode::Editing;
    return 0;
}

int Set::assign(size_t column, const std::optional<Value> &converted)
{
    if (mode_ == Mode::Reading) {
        return 3020;
    }
    const int field = source_->columns[column].field;
    if (field < 0) {
        return 3164;
    }
    if (!converted) {
        return 3421;
    }
    buffer_[static_cast<size_t>(field)] = *converted;
    return 0;
}

/// A row that is refused stays as it is being written.
int Set::update()
{
    if (mode_ == Mode::Reading) {
        return 3020;
    }
    bool changed = false;
    for (const auto &value : buffer_) {
        changed = changed || value;
        if (const int error = value ? errorOfWriting(*value) : 0; error != 0) {
            return error;
        }
    }
    if (mode_ == Mode::Adding) {
        Row row;
        std::transform(buffer_.begin(), buffer_.end(), std::back_inserter(row),
                       [](const auto &value) { return *value; });
        keys_.push_back({table().add(row)});
    } else if (changed && gone()) {
        return 3167;
    } else if (changed) {
        Row &row = table().rows.at(keys_[static_cast<size_t>(row_)].front());
        for (size_t i = 0; i < row.size(); ++i) {
            row[i] = buffer_[i].value_or(row[i]);
        }
    }
    mode_ = Mode::Reading;
    return 0;
}

int Set::remove()
{
    if (const int error = refusal(); error != 0) {
        return error;
    }
    auto &key = keys_[static_cast<size_t>(row_)];
    table().rows.erase(key.front());
    key.clear();
    return 0;
}

int Set::cancelUpdate()
{
    mode_ = Mode::Reading;
    return 0;
}

size_t Set::columnCount() const
{
    return source_->copy ? (copy_.empty() ? 1 : copy_.front().size()) : source_->columns.size();
}

std::vector<std::optional<Row>> Set::rows()
{
    std::vector<std::optional<Row>> all;
    mode_ = Mode::Reading;
    for (goFrom(0, 1); place_ == Place::Within; goFrom(row_ + 1, 1)) {
        Row values(columnCount());
        int error = 0;
        for (size_t column = 0; column < values.size() && error == 0; ++column) {
            error = read(column, values[column]);
        }
        all.push_back(error == 0 ? std::optional(values) : std::nullopt);
    }
    return all;
}

int Set::read(size_t column, Value &value) const
{
    const int field = source_->copy ? -1 : source_->columns[column].field;
    if (mode_ != Mode::Reading && field >= 0 && buffer_[static_cast<size_t>(field)]) {
        value = *buffer_[static_cast<size_t>(field)];
        return 0;
    }
    if (mode_ == Mode::Adding) {
        value = Null{};
        return 0;
    }
    if (place_ != Place::Within) {
        return 3021;
    }
    if (source_->copy) {
        value = copy_[static_cast<size_t>(row_)][column];
        return 0;
    }
    if (gone()) {
        return 3167;
    }
    const TableName name = source_->columns[column].table;
    const auto table = std::find(source_->tables.begin(), source_->tables.end(), name) - source_->tables.begin();
    value = valueOf(*current(static_cast<size_t>(table)), field);
    return 0;
}

} // namespace model
