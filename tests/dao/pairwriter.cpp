// Writes the same row into two tables of a database by one write, over and over, until it is killed: PATH [PAUSE]. The
// rows are numbered from 1 at the end of their text. Says "writing" behind the first one.
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

void addTo(dao::Database &database, const QString &table, int number)
{
    auto set = database.OpenRecordset(table);
    set.AddNew();
    set[u"Descricao"] = QString::number(number).rightJustified(90, u'X');
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
    for (int number = 1;; ++number) {
        {
            const dao::Unit together;
            addTo(*database, u"Caixa"_s, number);
            addTo(*database, u"Banco1"_s, number);
        }
        if (number == 1) {
            std::puts("writing");
            std::fflush(stdout);
        }
        std::this_thread::sleep_for(pause);
    }
}
