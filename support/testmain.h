#pragma once

#include "platform/ui/application.h"

#include <QTest>

namespace support
{

/// Sets the application up as the program's main function does.
void prepareApplication();

template<class TestClass>
int runTest(int argc, char **argv)
{
    ui::Application application(argc, argv);
    prepareApplication();
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace support
