#include "bench/banco_cru.h"

#include "platform/dao/collation.h"
#include "platform/dao/like.h"

#include <QDate>

#include <sqlite3.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

void check(sqlite3 *handle, int result)
{
    if (result != SQLITE_OK && result != SQLITE_DONE && result != SQLITE_ROW) {
        throw std::runtime_error(sqlite3_errmsg(handle));
    }
}

/// Texts are put in order by the program's own comparison on both sides: it is not what is measured.
int compare(void *, int leftSize, const void *left, int rightSize, const void *right)
{
    return dao::compareUtf8(QByteArrayView(static_cast<const char *>(left), leftSize),
                            QByteArrayView(static_cast<const char *>(right), rightSize));
}

QStringView textOf(sqlite3_value *value)
{
    return {static_cast<const QChar *>(sqlite3_value_text16(value)), sqlite3_value_bytes16(value) / 2};
}

/// CONTEM(pattern, text): the program's own comparison of patterns.
void contains(sqlite3_context *context, int, sqlite3_value **values)
{
    auto *pattern = static_cast<dao::LikePattern *>(sqlite3_get_auxdata(context, 0));
    if (pattern == nullptr) {
        pattern = new dao::LikePattern(textOf(values[0]));
        sqlite3_set_auxdata(context, 0, pattern, [](void *data) { delete static_cast<dao::LikePattern *>(data); });
        pattern = static_cast<dao::LikePattern *>(sqlite3_get_auxdata(context, 0));
    }
    sqlite3_result_int(context, pattern->matches(textOf(values[1])) ? 1 : 0);
}

void supplyCollation(void *, sqlite3 *handle, int, const char *name)
{
    sqlite3_create_collation(handle, name, SQLITE_UTF8, nullptr, compare);
}

} // namespace

BancoCru::BancoCru(const QString &path)
{
    sqlite3 *handle = nullptr;
    const int result =
        sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    handle_.reset(handle);
    check(handle, result);
    sqlite3_collation_needed(handle, nullptr, supplyCollation);
    sqlite3_create_function(handle, "CONTEM", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, contains, nullptr,
                            nullptr);
    execute("PRAGMA synchronous=EXTRA");
}

void BancoCru::execute(const char *statement)
{
    check(handle(), sqlite3_exec(handle(), statement, nullptr, nullptr, nullptr));
}

void BancoCru::Closer::operator()(sqlite3 *handle) const
{
    sqlite3_close_v2(handle);
}

Instrucao::Instrucao(const BancoCru &database, const char *statement)
{
    sqlite3_stmt *prepared = nullptr;
    check(database.handle(), sqlite3_prepare_v2(database.handle(), statement, -1, &prepared, nullptr));
    statement_.reset(prepared);
}

void Instrucao::Finalizer::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

bool Instrucao::step()
{
    const int result = sqlite3_step(statement_.get());
    check(sqlite3_db_handle(statement_.get()), result);
    return result == SQLITE_ROW;
}

void Instrucao::reset()
{
    sqlite3_reset(statement_.get());
}

void Instrucao::run()
{
    while (step()) {
    }
    reset();
}

void Instrucao::bind(int place, double value)
{
    sqlite3_bind_double(statement_.get(), place, value);
}

void Instrucao::bind(int place, qint64 value)
{
    sqlite3_bind_int64(statement_.get(), place, value);
}

void Instrucao::bind(int place, const QString &value)
{
    const auto utf8 = value.toUtf8();
    sqlite3_bind_text(statement_.get(), place, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

void Instrucao::bindUtf8(int place, QByteArrayView text)
{
    sqlite3_bind_text(statement_.get(), place, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void Instrucao::bindNull(int place)
{
    sqlite3_bind_null(statement_.get(), place);
}

double Instrucao::number(int column) const
{
    return sqlite3_column_double(statement_.get(), column);
}

qint64 Instrucao::integer(int column) const
{
    return sqlite3_column_int64(statement_.get(), column);
}

bool Instrucao::null(int column) const
{
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

QString Instrucao::text(int column) const
{
    const auto *bytes = sqlite3_column_text(statement_.get(), column);
    return QString::fromUtf8(static_cast<const char *>(static_cast<const void *>(bytes)),
                             sqlite3_column_bytes(statement_.get(), column));
}

QString codeOf(const Instrucao &row, int column)
{
    return u"%1"_s.arg(row.integer(column), 4, 10, QChar(u'0'));
}

QString dateOf(const Instrucao &row, int column)
{
    static const QDate dayZero(1899, 12, 30);
    return row.null(column) ? QString() : dayZero.addDays(row.integer(column)).toString(u"dd/MM/yyyy"_s);
}

} // namespace medidas
