// Reads damaged Jet files one after the other, and tells of each what came of it: lejet FOLDER FIRST END. It may be
// brought down by any of them; its last line says which one.
#include "platform/jet/file.h"
#include "platform/jet/header.h"
#include "tests/fuzz/danos.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace
{

/// More rows than this the small files of the test can't hold.
constexpr qint64 mostRows = 200'000;

const char *readAll(const QString &path)
{
    if (jet::examine(path) != jet::Kind::Jet4) {
        return "refused";
    }
    try {
        jet::File file(path);
        const char *outcome = "whole";
        qint64 rows = 0;
        for (std::size_t i = 0; i < file.tables().size(); ++i) {
            const jet::Table &table = file.tables()[i];
            const std::size_t columns = table.columns.size();
            bool asDefined = true;
            const jet::Reading reading = file.read(i, [&](const jet::Row &row) {
                asDefined = asDefined && row.values.size() == columns;
                return ++rows < mostRows;
            });
            if (reading.ended || !asDefined) {
                return "nonsense";
            }
            if (!table.readable || reading.lost != 0 || reading.rows != table.promisedRows) {
                outcome = "damaged";
            }
        }
        return outcome;
    } catch (const jet::Damaged &) {
        return "damaged";
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
        std::printf("%d %s\n", number, readAll(path));
        std::fflush(stdout);
    }
    return 0;
}
