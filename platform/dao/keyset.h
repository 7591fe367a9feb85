#pragma once

#include "platform/dao/connection.h"

#include <memory>
#include <vector>

namespace dao
{

/// A row of which only some columns are read.
struct PartialRow {
    Prepared statement;
    std::vector<int> places;  ///< of the columns in the statement; -1 for one that is not read
    std::vector<bool> wanted; ///< the columns that were asked for
    bool missed = false;      ///< one of them is not read
};

/// The rows of a statement, and the place among them.
///
/// A keyset finds its rows as they are visited: one open statement runs ahead and leaves its row numbers behind. Before
/// rows of its tables are changed or deleted the statement is run to its end, so that writing never changes which rows
/// the set holds. A row that is not the statement's present one is looked up by its row number. A result without row
/// identities is copied when opened.
class Keyset : public LiveSet
{
public:
    Keyset(std::shared_ptr<Connection> connection, std::shared_ptr<Plan> plan, std::vector<runtime::Value> literals);
    ~Keyset() override;

    const Plan &plan() const { return *plan_; }
    const ResultColumn &column(int column) const { return plan_->columns[static_cast<size_t>(column)]; }
    int place(QStringView name) const; ///< of a column by its name; error 3265 without one
    bool isWritable() const { return width_ == 1; }
    Connection &connection() const { return *connection_; }
    bool isOpen() const { return connection_ != nullptr; }
    void requireOpen() const; ///< error 91 once closed

    bool bof() const;
    bool eof() const;
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    void close();

    /// Of the current row: errors 3021 without one, 3167 where it is deleted.
    runtime::Value value(int column)
    {
        return current_ != nullptr && partial_ == nullptr ? foundValue(column) : otherValue(column);
    }

    qint64 rowNumber() const; ///< of the current row; error 3021 without one
    void load();              ///< brings the current row under a statement; errors as those of `value`
    void release();           ///< leaves the current row
    void append(qint64 row);  ///< a row that this set has added stands at its end
    void markDeleted();       ///< the current row, which this set has deleted

    // For a snapshot, whose rows are all known and have their places.
    size_t complete();        ///< meets all rows, forgets the deleted ones, and counts them; the file may stay locked
    bool standOn(size_t row); ///< false where it is gone
    void standOn(const runtime::Value *values); ///< on a row whose values are in memory
    void standOn(size_t row, PartialRow &partial);
    Prepared read(const QByteArray &sql); ///< a statement with the literals of the set's own
    qint64 rowNumber(size_t row, size_t table) const { return keys_[row * width_ + table]; }
    void holdFile(); ///< keeps the file locked for reading until `settle`

    bool reads(const QString &table) const override;
    void settle() override;
    void rowAdded(const QString &table, qint64 row) override;
    void disconnect() override;

private:
    /// Last: on the last row of the statement or on one added behind it, while the rows before it are not met and its
    /// index is not known.
    enum class Place { Before, Row, Last, After };

    void requireRow() const;
    bool empty() const { return drained_ && rows() == deleted_; }
    size_t rows() const { return width_ == 0 ? copy_.size() / plan_->columns.size() : keys_.size() / width_; }
    bool isDeleted(size_t row) const { return width_ == 1 && keys_[row] == 0; }
    bool looksElsewhere() const;
    void copyRows();
    bool fetch();
    bool fetchKey(Prepared &statement);
    void endScan();
    void drain();
    void readAhead();
    void letFileGo();
    void forgetRead();
    const runtime::Value *valuesOf(size_t row) const;
    void goTo(size_t row);
    void goBackFrom(size_t row);
    void goBehind();
    void dropCurrent();
    bool lookUpLast();
    void goToAdded(size_t added);
    bool seek();
    runtime::Value foundValue(int column) const
    {
        return valueOf(*current_, column + static_cast<int>(width_), column);
    }
    runtime::Value otherValue(int column);
    runtime::Value partialValue(int column);
    runtime::Value valueOf(const Prepared &statement, int place, int column) const;

    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Plan> plan_;
    std::vector<runtime::Value> literals_;
    size_t width_;                ///< row numbers of one row: 0 for a copy
    Prepared scan_;               ///< runs ahead; null once it has reached its end
    Prepared seek_;               ///< reads one row by its row numbers
    Prepared last_;               ///< reads the last row
    Prepared hold_;               ///< keeps the file locked for reading while a sorted set is walked
    Prepared *current_ = nullptr; ///< the statement that stands on the current row
    std::vector<qint64> keys_;    ///< the row numbers of the rows met so far; 0 for one that this set deleted
    std::vector<qint64> added_;   ///< rows added by this set while the statement ran: they stand at the end
    std::vector<qint64> newest_;  ///< the highest row number of each table that counts
    std::vector<runtime::Value> copy_;
    std::vector<runtime::Value> read_;     ///< the values of all rows, read when the set was opened
    const runtime::Value *held_ = nullptr; ///< the current row where its values are in memory
    PartialRow *partial_ = nullptr;        ///< the current row where only some columns are read
    size_t deleted_ = 0;
    bool drained_ = false;
    Place place_ = Place::Row;
    size_t row_ = 0;
    qint64 lastRow_ = 0;  ///< the row number of the row at Place::Last
    size_t addedMet_ = 0; ///< how many of the added rows stand up to Place::Last, its own row among them
};

} // namespace dao
