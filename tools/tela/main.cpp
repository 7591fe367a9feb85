// Ends well where the program can show its windows. Qt itself ends a program whose display it does not reach.
#include <QGuiApplication>

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    return 0;
}
