// Writes the same number into two tables of a database by one write, over and over, until it is killed: PATH [PAUSE].
// Says "writing" behind the first one.
#include "platform/dao/database.h"
#include "platform/dao/unit.h"

#include <QString>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace Qt::StringLiterals;

namespace
{

void addTo(dao::Database &database, const QString &table)
{
    auto set = database.OpenRecordset(table);
    set.AddNew();
    set[u"Descricao"] = QString(90, u'X');
    set.Update();
}

} // namespace

int main(int count, char **arguments)
{
    if (count < 2) {
        return 2;
    }
    const std::chrono::milliseconds pause{count > 2 ? std::atoi(arguments[2]) : 0};
    const auto database = dao::DBEngine::OpenDatabase(QString::fromLocal8Bit(arguments[1]));
    for (bool first = true;; first = false) {
        {
            const dao::Unit together;
            addTo(*database, u"Caixa"_s);
            addTo(*database, u"Banco1"_s);
        }
        if (first) {
            std::puts("writing");
            std::fflush(stdout);
        }
        std::this_thread::sleep_for(pause);
    }
}
