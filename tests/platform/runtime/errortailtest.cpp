#include "platform/runtime/errortail.h"

#include "files.h"
#include "testmain.h"

#include <QTemporaryDir>

#include <memory>

class ErrorTailTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"planner.err"_s);

    QByteArray Log() const { return Content(m_path); }

    static void Fail(int number) { throw RunTimeError{number, u"it\nbroke"_s}; }

private Q_SLOTS:
    void init()
    {
        g_bErrorTrap = true;
        OpenErrorLog(m_path);
    }
    void cleanup() { CloseErrorLog(); }

    void AFailingStepIsLoggedAndTheNextOneRuns()
    {
        const ErrorTail tail(" in MODSHOW, subDisplayMonth"_L1, {3186});
        bool reached = false;
        QVERIFY(!tail([] { Fail(6); }));
        QVERIFY(!tail([] { Fail(3186); }));
        QVERIFY(tail([&] { reached = true; }));
        Guarded(" in MainForm, tmAlarm_Timer"_L1, [] { Fail(91); })();
        QVERIFY(reached);
        QCOMPARE(Log(),
                 QByteArray(" 1:it broke in MODSHOW, subDisplayMonth\n 2:it broke in MainForm, tmAlarm_Timer\n"));
    }

    void EachRunStartsAnEmptyLog()
    {
        Guarded(" in MainForm, x"_L1, [] { Fail(6); })();
        OpenErrorLog(m_path);
        QCOMPARE(Log(), QByteArray());
        QCOMPARE(g_iErrCount, std::int16_t{0});
        QVERIFY_EXCEPTION_THROWN(OpenErrorLog(m_folder.filePath(u"gone/planner.err"_s)), RunTimeError);
    }

    void WhatASignalRunsEndsThereToo()
    {
        auto sender = std::make_unique<QObject>();
        const QObject* heard = nullptr;
        connect(sender.get(), &QObject::destroyed, this,
                Guarded(" in MainForm, x"_L1, [&](const QObject* gone) { heard = gone; }));
        connect(sender.get(), &QObject::destroyed, this, Guarded(" in MainForm, y"_L1, [] { Fail(91); }));
        const QObject* const expected = sender.get();
        sender.reset();
        QCOMPARE(heard, expected);
        QCOMPARE(Log(), QByteArray(" 1:it broke in MainForm, y\n"));

        int counted = 3;
        Guarded(" in MainForm, z"_L1, [](int& number) { ++number; })(counted); // passes the reference
        QCOMPARE(counted, 4);
    }

    void WithoutTheTrapErrorsTravel()
    {
        g_bErrorTrap = false;
        const ErrorTail tail(" in MODSHOW, x"_L1);
        QVERIFY_EXCEPTION_THROWN(tail([] { Fail(6); }), RunTimeError);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(ErrorTailTest)
#include "errortailtest.moc"
