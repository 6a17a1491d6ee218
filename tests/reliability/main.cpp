// Runs every class of the reliability suite in one process, then prints the figures.
#include "Figures.h"
#include "ServerFaultTest.h"

#include <QApplication>
#include <QTest>

using namespace lanzhou::test;

namespace {
template <class Test> int run(int argc, char** argv)
{
    Test test;
    return QTest::qExec(&test, argc, argv);
}
} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    int failed = 0;
    failed |= run<ServerFaultTest>(argc, argv);
    Figures::print();
    return failed;
}
