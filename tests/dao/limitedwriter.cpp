// Adds rows to the table Caixa of a database until it can't. Prints how many it wrote and the number of the error.
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/error.h"

#include <QString>

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

int written = 0;

void addRow(dao::Database &database)
{
    auto set = database.OpenRecordset(u"Caixa"_s);
    set.AddNew();
    const auto code = std::get<qint32>(set[u"Codigo"].Value());
    set[u"Descricao"] = QString(80, u'X');
    set[u"Saldo"] = static_cast<float>(code - 1);
    set.Update();
    ++written;
}

void fill(dao::Database &database)
{
    for (int i = 0; i < 100'000; ++i) {
        addRow(database);
    }
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 3) {
        return 2;
    }
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    int number = 0;
    try {
        auto database = dao::DBEngine::OpenDatabase(QString::fromLocal8Bit(arguments[1]));
        if (QString::fromLocal8Bit(arguments[2]) == u"batch") {
            const dao::Unit batch;
            fill(*database);
        } else {
            fill(*database);
        }
    } catch (const runtime::RuntimeError &error) {
        number = error.number();
    }
    std::printf("%d %d\n", written, number);
    return 0;
}
