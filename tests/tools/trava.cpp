// Holds a lock of the program until its standard input ends: trava FILE
#include "platform/files/filelock.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication program(argc, argv);
    files::FileLock lock(QCoreApplication::arguments().last());
    if (lock.take() != files::FileLock::Result::Taken) {
        return 1;
    }
    std::puts("taken");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
