#pragma once

#include "platform/dao/schema.h"
#include "platform/dao/statement.h"
#include "platform/dao/syntax.h"

#include <optional>
#include <vector>

namespace dao
{

/// How a literal goes to the engine, which follows from what it is compared with.
enum class BindAs { Itself, Number, Text, Date, Boolean };

/// A column of a recordset: what it is called, what it holds, and which field it is, if it is one.
struct ResultColumn {
    Field field;
    QString qualifiedName; ///< Table.Column; empty for an expression
    std::optional<FieldType> type;
    int place = -1; ///< of the field that it shows, where it is one
};

/// The fields of one table that an UPDATE writes: which row number of the result tells the row, the places of the
/// fields, and the columns of the result that they take.
struct RowChange {
    std::shared_ptr<const Table> table;
    int rowNumber = 0;
    std::vector<int> places;
    std::vector<size_t> columns;
};

/// Statements of one text that stand ready between two uses.
class StatementPool
{
public:
    explicit StatementPool(QByteArray sql = {}) : sql_(std::move(sql)) {}

    const QByteArray &sql() const { return sql_; }
    Prepared take(sqlite3 *handle);
    void giveBack(Prepared statement);
    void clear() { idle_.clear(); }

private:
    QByteArray sql_;
    std::vector<Prepared> idle_;
};

/// The pieces of a SELECT whose rows have identities, for a reading of some of its columns.
struct Pieces {
    QStringList rowNumbers;
    QStringList values; ///< a column each
    QString from;
    QString where;
};

/// A statement of the program carried over to the engine. It serves every statement that differs in its literals only.
struct Plan {
    StatementKind kind = StatementKind::Select;
    std::vector<BindAs> binds;
    std::vector<std::shared_ptr<const Table>> tables; ///< whose row numbers lead the result, for a keyset
    QStringList reads;                                ///< every table that the statement looks at
    std::vector<ResultColumn> columns;
    bool sorted = false;                 ///< the engine has to sort all rows before it gives the first one
    bool keyset = false;                 ///< rows have identities; otherwise the result is a copy
    bool asksInColumns = false;          ///< a column shows what a query inside the statement finds
    StatementPool scan;                  ///< all rows in order
    StatementPool keys;                  ///< the row numbers of all rows in order, or of those that a DELETE takes
    StatementPool seek;                  ///< one row by its row numbers, which follow the literals
    Pieces pieces;                       ///< of a keyset, for a reading of some columns
    StatementPool last;                  ///< the last row; the highest row number that counts follows the literals
    std::shared_ptr<const Table> target; ///< the table that INSERT, DELETE, ALTER or DROP is about
    std::vector<int> targetPlaces;       ///< of the fields that an INSERT names
    std::vector<RowChange> changes;      ///< of an UPDATE, a table each
    std::vector<Field> takers;           ///< the fields that take the columns of an action
    int hidden = 0;                      ///< row numbers in front of an UPDATE's values
    Statement definition;                ///< of CREATE, ALTER, DROP and SELECT INTO

    void clearPools();
};

/// Binds the literals of a statement. Error 3464 for a text that stands where only a number or a date makes sense.
void bindLiterals(Prepared &statement, const Plan &plan, const std::vector<runtime::Value> &literals);

} // namespace dao
