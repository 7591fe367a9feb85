#pragma once

#include "platform/dao/keyset.h"

#include <memory>
#include <optional>
#include <vector>

namespace dao
{

/// What a recordset holds: its rows, and the one of them, or the new one, that is being written.
class RecordsetData
{
public:
    RecordsetData(std::shared_ptr<Connection> connection, std::shared_ptr<Plan> plan,
                  std::vector<runtime::Value> literals);

    Keyset &keyset() { return keyset_; }

    /// For a move: gives up the row that is being written.
    Keyset &leave();

    void addNew();
    void edit();
    void update();
    void remove();
    void cancelUpdate();

    runtime::Value value(int column) { return mode_ == Mode::Reading ? keyset_.value(column) : writtenValue(column); }
    void assign(int column, const runtime::Value &value);

private:
    enum class Mode { Reading, Adding, Editing };

    const Table &table() const { return *keyset_.plan().tables.front(); }
    void requireWritable() const;
    void requireWriting() const;
    runtime::Value writtenValue(int column);
    int writablePlace(int column) const;
    void updateRow();
    void insertRow();
    std::shared_ptr<TableWriter> writer();

    Keyset keyset_;
    Mode mode_ = Mode::Reading;
    std::weak_ptr<TableWriter> writer_;                 ///< the connection's, while the schema is what it was
    std::vector<std::optional<runtime::Value>> buffer_; ///< the fields of the row being written
    std::vector<int> changedPlaces_;                    ///< of a row being edited; kept for their room
    std::vector<runtime::Value> changedValues_;
};

} // namespace dao
