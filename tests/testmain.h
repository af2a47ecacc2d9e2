// The tests of a folder form one program. Its first argument says what to run: a test, by its class name in any case,
// or the second process of a test.
#pragma once

#include <QApplication>
#include <QProcess>
#include <QTest>

#include <initializer_list>
#include <tuple>
#include <utility>

// Registers a main routine under a name. For static objects only, since main looks them up.
class Runnable
{
public:
    using Main = int (*)(int argc, char** argv); // argv without the name
    Runnable(const char* name, Main main);
    static int Run(int argc, char** argv); // 2 for an unknown name
};

template <typename Test, typename Application>
int RunTest(int argc, char** argv)
{
    const Application application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

// Named cases of a test.
template <typename... Columns>
using Rows = std::initializer_list<std::tuple<const char*, Columns...>>;

// Begins a case with the test's init, and names it if it fails.
class InRow
{
public:
    InRow(QObject* test, const QString& name) : m_name(name)
    {
        for (const char* step : {"cleanup", "init"})
            if (test->metaObject()->indexOfMethod(QByteArray(step) + "()") >= 0) QMetaObject::invokeMethod(test, step);
    }
    InRow(QObject* test, const char* name) : InRow(test, QString::fromUtf8(name)) {}
    ~InRow()
    {
        if (QTest::currentTestFailed()) qInfo("in the row '%s'", qPrintable(m_name));
    }
    Q_DISABLE_COPY_MOVE(InRow)

private:
    QString m_name;
};

#define ORRELIN_TEST(Test) static const Runnable run##Test(#Test, RunTest<Test, QApplication>);
#define ORRELIN_TEST_WITHOUT_WINDOWS(Test) static const Runnable run##Test(#Test, RunTest<Test, QCoreApplication>);

// Starts this program again, with the routine of this name.
inline void StartAgain(QProcess& process, const QString& name, const QStringList& words = {})
{
    process.start(QCoreApplication::applicationFilePath(), QStringList(name) + words);
}
