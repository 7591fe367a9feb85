// Reads damaged Jet files one after the other, and tells of each what came of it and a sum of all that was read: lejet
// FOLDER FIRST END. It may be brought down by any of them; its last line says which one.
#include "platform/jet/file.h"
#include "platform/jet/frames.h"
#include "platform/jet/header.h"
#include "tests/fuzz/danos.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>

#include <cstdio>

namespace
{

/// More rows than this the small files of the test can't hold.
constexpr qint64 mostRows = 200'000;

/// What came of a file, and of all that was read of it.
struct Outcome {
    const char *word;
    QByteArray sum = "-";
};

Outcome readAll(const QString &path)
{
    if (jet::examine(path) != jet::Kind::Jet4) {
        return {"refused"};
    }
    try {
        jet::File file(path);
        const char *outcome = "whole";
        QCryptographicHash sum(QCryptographicHash::Sha1);
        sum.addData(jet::packTables(file.tables()));
        QByteArray bytes;
        qint64 rows = 0;
        for (std::size_t i = 0; i < file.tables().size(); ++i) {
            const jet::Table &table = file.tables()[i];
            const std::size_t columns = table.columns.size();
            bool asDefined = true;
            const jet::Reading reading = file.read(i, [&](const jet::Row &row) {
                asDefined = asDefined && row.values.size() == columns;
                bytes.resize(0);
                jet::packRow(row, bytes);
                sum.addData(bytes);
                return ++rows < mostRows;
            });
            if (reading.ended || !asDefined) {
                return {"nonsense"};
            }
            if (!table.readable || reading.lost != 0 || reading.rows != table.promisedRows) {
                outcome = "damaged";
            }
        }
        return {outcome, sum.result().toHex()};
    } catch (const jet::Damaged &) {
        return {"damaged"};
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication program(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString path = arguments.at(1) + QStringLiteral("/velho.mdb");
    for (int number = arguments.at(2).toInt(); number < arguments.at(3).toInt(); ++number) {
        QFile file(path);
        const QByteArray bytes = fuzz::jetDamage(number).bytes;
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            return 1;
        }
        file.close();
        std::printf("%d\n", number);
        std::fflush(stdout);
        const Outcome outcome = readAll(path);
        std::printf("%d %s %s\n", number, outcome.word, outcome.sum.constData());
        std::fflush(stdout);
    }
    return 0;
}
