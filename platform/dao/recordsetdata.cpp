#include "platform/dao/recordsetdata.h"

#include "platform/dao/fields.h"
#include "platform/runtime/error.h"

#include <utility>

namespace dao
{

RecordsetData::RecordsetData(std::shared_ptr<Connection> connection, std::shared_ptr<Plan> plan,
                             std::vector<runtime::Value> literals)
    : keyset_(std::move(connection), std::move(plan), std::move(literals))
{
}

Keyset &RecordsetData::leave()
{
    mode_ = Mode::Reading;
    return keyset_;
}

void RecordsetData::requireWritable() const
{
    keyset_.requireOpen();
    if (!keyset_.isWritable()) {
        runtime::raise(3027);
    }
}

void RecordsetData::requireWriting() const
{
    keyset_.requireOpen();
    if (mode_ == Mode::Reading) {
        runtime::raise(3020);
    }
}

/// Of the row being written: what was assigned, else what stands there.
runtime::Value RecordsetData::writtenValue(int column)
{
    keyset_.requireOpen();
    const int place = keyset_.column(column).place;
    if (place >= 0 && buffer_[static_cast<size_t>(place)]) {
        return *buffer_[static_cast<size_t>(place)];
    }
    return mode_ == Mode::Adding ? runtime::Value(runtime::Null{}) : keyset_.value(column);
}

int RecordsetData::writablePlace(int column) const
{
    const ResultColumn &described = keyset_.column(column);
    if (described.place < 0) {
        runtime::raise(3164, {described.field.name});
    }
    return described.place;
}

void RecordsetData::assign(int column, const runtime::Value &value)
{
    requireWriting();
    const auto place = static_cast<size_t>(writablePlace(column));
    buffer_[place] = convertForField(value, table().fields[place]);
}

std::shared_ptr<TableWriter> RecordsetData::writer()
{
    auto writer = writer_.lock();
    if (!writer) {
        writer = keyset_.connection().writer(keyset_.plan().tables.front());
        writer_ = writer;
    }
    return writer;
}

void RecordsetData::addNew()
{
    requireWritable();
    leave().release();
    std::vector<std::optional<runtime::Value>> fields;
    for (const Field &field : table().fields) {
        fields.emplace_back(convertForField(runtime::Null{}, field));
    }
    if (table().counter >= 0) {
        fields[static_cast<size_t>(table().counter)] = writer()->nextCounter();
    }
    buffer_ = std::move(fields);
    mode_ = Mode::Adding;
}

void RecordsetData::edit()
{
    requireWritable();
    leave().load();
    buffer_.assign(table().fields.size(), std::nullopt);
    mode_ = Mode::Editing;
}

void RecordsetData::update()
{
    requireWriting();
    if (mode_ == Mode::Adding) {
        insertRow();
    } else {
        updateRow();
    }
    mode_ = Mode::Reading;
}

void RecordsetData::insertRow()
{
    std::vector<runtime::Value> values;
    values.reserve(buffer_.size());
    for (const auto &field : buffer_) {
        values.push_back(*field);
    }
    keyset_.append(writer()->insert(values));
}

void RecordsetData::updateRow()
{
    changedPlaces_.clear();
    changedValues_.clear();
    for (size_t place = 0; place < buffer_.size(); ++place) {
        if (buffer_[place]) {
            changedPlaces_.push_back(static_cast<int>(place));
            changedValues_.push_back(*buffer_[place]);
        }
    }
    if (!changedPlaces_.empty() && !writer()->update(keyset_.rowNumber(), changedPlaces_, changedValues_)) {
        runtime::raise(3167);
    }
}

void RecordsetData::remove()
{
    requireWritable();
    const qint64 row = leave().rowNumber();
    if (!writer()->remove(row)) {
        runtime::raise(3167);
    }
    keyset_.markDeleted();
}

void RecordsetData::cancelUpdate()
{
    keyset_.requireOpen();
    mode_ = Mode::Reading;
}

} // namespace dao
