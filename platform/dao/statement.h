#pragma once

#include "platform/dao/tabledef.h"
#include "platform/runtime/value.h"

#include <QByteArray>

#include <sqlite3.h>

#include <memory>

namespace dao
{

/// Raises what a result code of the engine means to the user: 3183 for a full disk, 3051 for a file that is locked or
/// may not be written, 3343 for a damaged one, the error that a function of a statement raised, else 3075.
[[noreturn]] void raiseEngine(sqlite3 *handle, int result);

/// A prepared statement of the engine. Every failure is a RuntimeError.
class Prepared
{
public:
    Prepared() = default;
    Prepared(sqlite3 *handle, const QByteArray &sql);

    explicit operator bool() const { return statement_ != nullptr; }

    /// Goes to the next row; false at the end, where the statement is reset.
    bool step();
    void reset();

    /// Runs an insert; false where the row number is taken already.
    bool stepUnlessTaken();

    void bind(int place, const runtime::Value &value); ///< places count from 1
    void bind(int place, qint64 value);

    qint64 integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }

    /// The value in a field's own width. A Boolean is never Null.
    runtime::Value value(int column, FieldType type) const;

    /// The value as the engine holds it, for what has no type of its own.
    runtime::Value value(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
    };

    void finish(int result);

    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

} // namespace dao
