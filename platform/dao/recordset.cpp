#include "platform/dao/recordset.h"

#include "platform/dao/recordsetdata.h"
#include "platform/runtime/error.h"

namespace dao
{

namespace
{

RecordsetData &opened(const std::unique_ptr<RecordsetData> &data)
{
    if (!data) {
        runtime::raise(91);
    }
    return *data;
}

int columnCount(RecordsetData &data)
{
    return static_cast<int>(data.keyset().plan().columns.size());
}

int checkedPlace(RecordsetData &data, int place)
{
    if (place < 0 || place >= columnCount(data)) {
        runtime::raise(3265);
    }
    return place;
}

} // namespace

runtime::Value FieldRef::Value() const
{
    return data_.value(column_);
}

FieldRef &FieldRef::operator=(const runtime::Value &value)
{
    data_.assign(column_, value);
    return *this;
}

Recordset::Recordset(std::unique_ptr<RecordsetData> data) : data_(std::move(data)) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset &&) noexcept = default;
Recordset &Recordset::operator=(Recordset &&) noexcept = default;

bool Recordset::Bof() const
{
    return opened(data_).keyset().bof();
}
bool Recordset::Eof() const
{
    return opened(data_).keyset().eof();
}
void Recordset::MoveFirst()
{
    opened(data_).leave().moveFirst();
}
void Recordset::MoveLast()
{
    opened(data_).leave().moveLast();
}
void Recordset::MoveNext()
{
    opened(data_).leave().moveNext();
}
void Recordset::MovePrevious()
{
    opened(data_).leave().movePrevious();
}
void Recordset::AddNew()
{
    opened(data_).addNew();
}
void Recordset::Edit()
{
    opened(data_).edit();
}
void Recordset::Update()
{
    opened(data_).update();
}
void Recordset::Delete()
{
    opened(data_).remove();
}
void Recordset::CancelUpdate()
{
    opened(data_).cancelUpdate();
}
void Recordset::Close()
{
    opened(data_).leave().close();
}

FieldRef Recordset::operator[](QStringView name)
{
    RecordsetData &data = opened(data_);
    return {data, data.keyset().place(name)};
}

FieldRef Recordset::operator[](int place)
{
    RecordsetData &data = opened(data_);
    return {data, checkedPlace(data, place)};
}

runtime::Value Recordset::value(QStringView name) const
{
    RecordsetData &data = opened(data_);
    return data.value(data.keyset().place(name));
}

runtime::Value Recordset::value(int place) const
{
    RecordsetData &data = opened(data_);
    return data.value(checkedPlace(data, place));
}

std::unique_ptr<RecordsetData> Recordset::takeData()
{
    opened(data_).keyset().requireOpen();
    return std::move(data_);
}

int Recordset::fieldCount() const
{
    return columnCount(opened(data_));
}

Field Recordset::field(int place) const
{
    RecordsetData &data = opened(data_);
    return data.keyset().column(checkedPlace(data, place)).field;
}

int Recordset::fieldPlace(QStringView name) const
{
    return opened(data_).keyset().place(name);
}

} // namespace dao
