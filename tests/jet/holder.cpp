// Begins to read a Jet file through the process that does it, and then waits to be killed: SERVER FILE
#include "platform/jet/stream.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication program(argc, argv);
    jet::Reader reader(QCoreApplication::arguments().at(2), {QCoreApplication::arguments().at(1), {}});
    reader.read(0, [](const jet::Row &) -> bool {
        std::puts("first row");
        std::fflush(stdout);
        for (;;) {
            QThread::sleep(1);
        }
    });
}
