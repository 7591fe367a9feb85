#pragma once

#include "platform/dao/tabledef.h"
#include "platform/runtime/value.h"

#include <QString>

#include <memory>

namespace dao
{

class Recordset;
class RecordsetData;

/// One field of a recordset's current row, or of the row being added or edited.
class FieldRef
{
public:
    /// The field's value: Null, or a value of the field's own width.
    runtime::Value Value() const;

    /// Sets the field of the row being added or edited (3020 without AddNew or Edit). A text is converted by
    /// the regional settings (3421 where it can't be); too long or empty texts are found at `Update`.
    FieldRef &operator=(const runtime::Value &value);

private:
    friend class Recordset;
    FieldRef(RecordsetData &data, int column) : data_(data), column_(column) {}

    RecordsetData &data_;
    int column_;
};

/// A keyset: it holds the identities of its rows and reads each row as it is visited, so adding rows to a
/// table while walking it does no harm. New rows stand at its end. Stands on its first row when opened.
class Recordset
{
public:
    explicit Recordset(std::unique_ptr<RecordsetData> data);
    ~Recordset();
    Recordset(Recordset &&) noexcept;
    Recordset &operator=(Recordset &&) noexcept;

    /// True when there is no row before, or behind, the current position. Both are true for an empty set.
    bool Bof() const;
    bool Eof() const;

    void MoveFirst();
    void MoveLast(); ///< costs one look-up on an ordered table, whatever its size
    void MoveNext();
    void MovePrevious();

    void AddNew(); ///< a counter field has its number at once
    void Edit();
    void Update();
    void Delete();
    void CancelUpdate();
    void Close();

    /// By name without regard to case, or by place from 0. Error 3265 for an unknown one.
    FieldRef operator[](QStringView name);
    FieldRef operator[](int place);

    /// The current row's value, as `operator[]`.
    runtime::Value value(QStringView name) const;
    runtime::Value value(int place) const;

    int fieldCount() const;
    Field field(int place) const;
    int fieldPlace(QStringView name) const; ///< error 3265 for an unknown one

    /// For a snapshot, which takes the rows over. Error 91 where the set is closed.
    std::unique_ptr<RecordsetData> takeData();

private:
    std::unique_ptr<RecordsetData> data_;
};

} // namespace dao
