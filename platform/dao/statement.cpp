#include "platform/dao/statement.h"

#include "platform/dao/functions.h"
#include "platform/dao/types.h"
#include "platform/dao/waiting.h"
#include "platform/runtime/error.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

int numberOf(int result)
{
    // A write that the system refuses without saying why is a quota or a limit on the size of files.
    if (result == SQLITE_IOERR_WRITE) {
        return 3183;
    }
    // What a kill left half written waits for the next program that may write.
    if (result == SQLITE_READONLY_ROLLBACK) {
        return 3428;
    }
    switch (result & 0xFF) {
    case SQLITE_FULL:
        return 3183;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return 3343;
    case SQLITE_IOERR:
        return result == SQLITE_IOERR_SHORT_READ ? 3343 : 3051;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_PROTOCOL:
        return 3051;
    default:
        return 3075;
    }
}

/// The engine names its limits (columns, tables, terms, depth) in its messages only.
bool isTooMuch(int result, QByteArrayView message)
{
    return result == SQLITE_TOOBIG || message.startsWith("too many ") || message.startsWith("at most ") ||
           message.startsWith("parser stack overflow") || message.startsWith("Expression tree is too large") ||
           message.startsWith("variable number must be");
}

template<class... Kinds>
struct Overloaded : Kinds... {
    using Kinds::operator()...;
};
template<class... Kinds>
Overloaded(Kinds...) -> Overloaded<Kinds...>;

} // namespace

void raiseEngine(sqlite3 *handle, int result)
{
    throwPendingError();
    const int extended = sqlite3_extended_errcode(handle);
    const int number = numberOf(extended != SQLITE_OK ? extended : result);
    if (number == 3075) {
        if (isTooMuch(result, sqlite3_errmsg(handle))) {
            runtime::raise(3360);
        }
        runtime::raise(number, {u"Erro de sintaxe"_s, {}});
    }
    const char *const path = handle != nullptr ? sqlite3_db_filename(handle, "main") : nullptr;
    runtime::raise(number, {QDir::toNativeSeparators(QString::fromUtf8(path))});
}

Prepared::Prepared(sqlite3 *handle, const QByteArray &sql)
{
    sqlite3_stmt *statement = nullptr;
    const int result = sqlite3_prepare_v3(handle, sql.constData(), static_cast<int>(sql.size()) + 1,
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    endWaiting();
    statement_.reset(statement);
    if (result != SQLITE_OK) {
        raiseEngine(handle, result);
    }
}

bool Prepared::step()
{
    const int result = sqlite3_step(statement_.get());
    endWaiting();
    if (result == SQLITE_ROW) {
        return true;
    }
    finish(result);
    return false;
}

bool Prepared::stepUnlessTaken()
{
    const int result = sqlite3_step(statement_.get());
    endWaiting();
    if ((result & 0xFF) == SQLITE_CONSTRAINT) {
        sqlite3_reset(statement_.get());
        return false;
    }
    finish(result);
    return true;
}

/// The reset gives the locks back, but the engine forgets the cause of a failure with it.
void Prepared::finish(int result)
{
    if (result == SQLITE_DONE) {
        sqlite3_reset(statement_.get());
        return;
    }
    try {
        raiseEngine(sqlite3_db_handle(statement_.get()), result);
    } catch (const runtime::RuntimeError &) {
        sqlite3_reset(statement_.get());
        throw;
    }
}

void Prepared::reset()
{
    sqlite3_reset(statement_.get());
}

void Prepared::bind(int place, qint64 value)
{
    sqlite3_bind_int64(statement_.get(), place, value);
}

void Prepared::bind(int place, const runtime::Value &value)
{
    sqlite3_stmt *const statement = statement_.get();
    std::visit(Overloaded{
                   [&](const QString &text) {
                       const QByteArray utf8 = text.toUtf8();
                       sqlite3_bind_text(statement, place, utf8.constData(), static_cast<int>(utf8.size()),
                                         SQLITE_TRANSIENT);
                   },
                   [&](runtime::Date date) { sqlite3_bind_double(statement, place, date.serial); },
                   [&](bool truth) { sqlite3_bind_int(statement, place, truth ? -1 : 0); },
                   [&](qint16 number) { sqlite3_bind_int(statement, place, number); },
                   [&](qint32 number) { sqlite3_bind_int(statement, place, number); },
                   [&](float number) { sqlite3_bind_double(statement, place, static_cast<double>(number)); },
                   [&](double number) { sqlite3_bind_double(statement, place, number); },
                   [&](const auto &) { sqlite3_bind_null(statement, place); },
               },
               value);
}

runtime::Value Prepared::value(int column, FieldType type) const
{
    sqlite3_value *const value = sqlite3_column_value(statement_.get(), column);
    if (sqlite3_value_type(value) == SQLITE_NULL) {
        return type == FieldType::Boolean ? runtime::Value(false) : runtime::Value(runtime::Null{});
    }
    switch (type) {
    case FieldType::Single:
        return static_cast<float>(sqlite3_value_double(value));
    case FieldType::Double:
        return sqlite3_value_double(value);
    case FieldType::Date:
        return runtime::Date{sqlite3_value_double(value)};
    case FieldType::Long: {
        const qint64 number = sqlite3_value_int64(value);
        const bool fits = number == static_cast<qint32>(number);
        return fits ? runtime::Value(static_cast<qint32>(number)) : runtime::Value(static_cast<double>(number));
    }
    case FieldType::Byte:
    case FieldType::Integer:
        return static_cast<qint16>(sqlite3_value_int(value));
    case FieldType::Currency:
        return asCurrency(sqlite3_value_double(value));
    case FieldType::Boolean:
        return sqlite3_value_int(value) != 0;
    case FieldType::Text:
    case FieldType::Memo:
        break;
    }
    const auto *const utf8 = sqlite3_value_text(value);
    return QString::fromUtf8(reinterpret_cast<const char *>(utf8), sqlite3_value_bytes(value));
}

runtime::Value Prepared::value(int column) const
{
    switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_INTEGER:
        return value(column, FieldType::Long);
    case SQLITE_FLOAT:
        return value(column, FieldType::Double);
    case SQLITE_NULL:
        return runtime::Null{};
    default:
        return value(column, FieldType::Text);
    }
}

} // namespace dao
