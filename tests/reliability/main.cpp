// Runs every class of the reliability suite in one process, then prints the figures.
#include "Figures.h"
#include "InjectionTest.h"

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
    // A copy started by the concurrency test posts and ends; it runs no test class.
    if (argc > 1 && qstrcmp(argv[1], "--post-worker") == 0)
        return RunPostWorker(QCoreApplication::arguments().mid(2));
    int failed = 0;
    failed += run<InjectionTest>(argc, argv);
    failed += RunConcurrency(argc, argv);
    failed += RunBadRows(argc, argv);
    failed += RunServerFaults(argc, argv);
    Figures::print();
    return failed;
}
