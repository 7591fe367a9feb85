#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <vector>

/// What recordsets have to do, said as plainly as it can be: tables are maps in memory, a set is a list of row numbers.
namespace model
{

using Row = std::vector<runtime::Value>;

/// A table: its rows by the number of their arrival.
struct Table {
    QString name;
    Row fresh; ///< what the fields of a new row hold
    bool counts = false;
    std::map<int, Row> rows{};
    int lastRow = 0;
    qint32 counter = 0;

    int add(Row row);
    const Row *find(int number) const;
};

enum TableName { Items, Groups };
enum ItemField { Code, Name, Price, Group, Active };
enum GroupField { GroupCode, GroupName };

using Tables = std::array<Table, 2>;

/// The two tables that the walks go over, empty.
Tables emptyTables();

/// A field of one of the tables; a negative field is twice the price.
struct Column {
    TableName table;
    int field;
};

struct Order {
    Column column;
    bool descending = false;
};

/// A statement and what it means. A copy is worked out when it is opened; of the others the set holds the rows.
struct Source {
    QString sql;
    std::vector<TableName> tables{};
    std::vector<Column> columns{};
    std::function<bool(const std::vector<const Row *> &, const Tables &)> holds{};
    std::vector<Order> order{};
    int most = 1'000'000;
    std::function<std::vector<Row>(const Tables &)> copy{};
};

/// The first three hold all items.
const std::vector<Source> &sources();

/// A set over the tables. Every action gives the number of its error, 0 without one.
class Set
{
public:
    Set(Tables &tables, const Source &source);

    const Source &source() const { return *source_; }
    bool bof() const;
    bool eof() const;
    int moveFirst();
    int moveLast();
    int moveNext();
    int movePrevious();
    int addNew();
    int edit();
    int assign(size_t column, const std::optional<runtime::Value> &converted);
    int update();
    int remove();
    int cancelUpdate();
    int read(size_t column, runtime::Value &value) const;
    size_t columnCount() const;

    /// All rows as they stand; nothing for one that is gone. The set ends there.
    std::vector<std::optional<Row>> rows();

private:
    enum class Place { Before, Within, After };
    enum class Mode { Reading, Adding, Editing };
    using Buffer = std::vector<std::optional<runtime::Value>>;

    bool empty() const;
    bool writable() const { return source_->tables.size() == 1; }
    bool deleted(int row) const;
    void goFrom(int row, int step);
    Table &table() const { return (*tables_)[source_->tables.front()]; }
    const Row *current(size_t table) const;
    bool gone() const;
    int refusal();

    Tables *tables_;
    const Source *source_;
    std::vector<std::vector<int>> keys_; ///< empty for a row that this set deleted
    std::vector<Row> copy_;
    Place place_ = Place::Within;
    int row_ = 0;
    Mode mode_ = Mode::Reading;
    Buffer buffer_;
};

} // namespace model
