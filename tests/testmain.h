// The tests of a folder are one program; the first word of its command line says what it runs: a test by the name of
// its class, in any case, or the part of a second process that a test starts.
#pragma once

#include <QApplication>
#include <QProcess>
#include <QTest>

#include <initializer_list>
#include <tuple>
#include <utility>

// Under a name, a routine that stands for main. Static objects alone, since main looks them up.
class Runnable
{
public:
    using Main = int (*)(int argc, char** argv); // argv without the name
    Runnable(const char* name, Main main);
    static int Run(int argc, char** argv); // 2 for a name that is none
};

template <typename Test, typename Application>
int RunTest(int argc, char** argv)
{
    const Application application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

// The cases that a test goes through, each under a name.
template <typename... Columns>
using Rows = std::initializer_list<std::tuple<const char*, Columns...>>;

// One of them: it begins as a test of its own does, and is named where it fails.
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

// This program again, for what was registered under the name.
inline void StartAgain(QProcess& process, const QString& name, const QStringList& words = {})
{
    process.start(QCoreApplication::applicationFilePath(), QStringList(name) + words);
}
