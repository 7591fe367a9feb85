#pragma once

#include "platform/dao/connection.h"

#include <memory>
#include <optional>
#include <vector>

namespace dao
{

/// What a recordset holds: the row numbers met so far, the place it stands at, the row being written.
///
/// A keyset finds its rows as they are visited: one open statement runs ahead and leaves its row numbers behind. Before
/// rows of its tables are changed or deleted the statement is run to its end, so that writing never changes which rows
/// the set holds. A row that is not the statement's present one is looked up by its row number. A result without row
/// identities is copied when opened.
class RecordsetData : public LiveSet
{
public:
    RecordsetData(std::shared_ptr<Connection> connection, std::shared_ptr<Plan> plan,
                  std::vector<runtime::Value> literals);
    ~RecordsetData() override;

    bool bof() const;
    bool eof() const;
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    void addNew();
    void edit();
    void update();
    void remove();
    void cancelUpdate();
    void close();

    runtime::Value value(int column);
    void assign(int column, const runtime::Value &value);
    int place(QStringView name) const;
    const std::vector<ResultColumn> &columns() const;

    bool reads(const QString &table) const override;
    void settle() override;
    void rowAdded(const QString &table, qint64 row) override;
    void disconnect() override;

private:
    /// Last: on the last row of the statement or on one added behind it, while the rows before it are not met and its
    /// index is not known.
    enum class Place { Before, Row, Last, After };
    enum class Mode { Reading, Adding, Editing };

    void requireOpen() const;
    void requireRow() const;
    void requireWritable() const;
    bool empty() const { return drained_ && rows() == deleted_; }
    size_t rows() const { return width_ == 0 ? copied_ : keys_.size() / width_; }
    bool isDeleted(size_t row) const { return width_ == 1 && keys_[row] == 0; }
    bool looksElsewhere() const;
    void copyRows();
    bool fetch();
    bool fetchKey(Prepared &statement);
    void endScan();
    void drain();
    void holdFile();
    void goTo(size_t row);
    void goBackFrom(size_t row);
    void goBehind();
    void release();
    void dropCurrent();
    bool lookUpLast();
    void goToAdded(size_t added);
    void load();
    qint64 rowNumber() const;
    runtime::Value stored(int column);
    int writablePlace(int column) const;
    void updateRow();
    void insertRow();
    TableWriter &writer();

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
    size_t copied_ = 0;
    size_t deleted_ = 0;
    bool drained_ = false;
    Place place_ = Place::Row;
    size_t row_ = 0;
    qint64 lastRow_ = 0;  ///< the row number of the row at Place::Last
    size_t addedMet_ = 0; ///< how many of the added rows stand up to Place::Last, its own row among them
    Mode mode_ = Mode::Reading;
    std::shared_ptr<TableWriter> writer_;
    int writerAge_ = 0;
    std::vector<std::optional<runtime::Value>> buffer_; ///< the fields of the row being written
    std::vector<int> changedPlaces_;                    ///< of a row being edited; kept for their room
    std::vector<runtime::Value> changedValues_;
};

} // namespace dao
