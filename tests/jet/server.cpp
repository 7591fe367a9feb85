// Serves a Jet file to the tests as the import's tool does to itself.
#include "platform/jet/stream.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication program(argc, argv);
    return jet::serve(QCoreApplication::arguments().last());
}
