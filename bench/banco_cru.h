#pragma once

#include <QByteArrayView>
#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

/// The bare library that the program is measured against: a connection and a prepared statement, nothing else.
/// Only the measurements reach around the program's own data layer.
namespace medidas
{

class BancoCru
{
public:
    explicit BancoCru(const QString &path);
    void execute(const char *statement);
    sqlite3 *handle() const { return handle_.get(); }

private:
    struct Closer {
        void operator()(sqlite3 *handle) const;
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

class Instrucao
{
public:
    Instrucao(const BancoCru &database, const char *statement);
    bool step();
    void reset();
    void run(); ///< step to the end, then reset
    void bind(int place, double value);
    void bind(int place, qint64 value);
    void bind(int place, int value) { bind(place, qint64{value}); }
    void bind(int place, const QString &value);
    void bindUtf8(int place, QByteArrayView text);
    void bindNull(int place);

    double number(int column) const;
    qint64 integer(int column) const;
    bool null(int column) const;
    QString text(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt *statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// What a list shows of a column: a code of four digits, a date, "" for none.
QString codeOf(const Instrucao &row, int column);
QString dateOf(const Instrucao &row, int column);

} // namespace medidas
