#include "platform/runtime/errortail.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class ErrorTailTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("planner.err"));

    QByteArray Log() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no log");
    }

    static void Fail(int number) { throw RunTimeError{number, QStringLiteral("it\nbroke")}; }

private Q_SLOTS:
    void init()
    {
        g_bErrorTrap = true;
        OpenErrorLog(m_path);
    }
    void cleanup() { CloseErrorLog(); }

    void AFailingStepIsLoggedAndTheNextOneRuns()
    {
        const ErrorTail tail(QLatin1StringView(" in MODSHOW, subDisplayMonth"), {3186});
        bool reached = false;
        QVERIFY(!tail([] { Fail(6); }));
        QVERIFY(!tail([] { Fail(3186); }));
        QVERIFY(tail([&] { reached = true; }));
        guard(QLatin1StringView(" in MainForm, tmAlarm_Timer"), [] { Fail(91); });
        QVERIFY(reached);
        QCOMPARE(Log(),
                 QByteArray(" 1:it broke in MODSHOW, subDisplayMonth\n 2:it broke in MainForm, tmAlarm_Timer\n"));
    }

    void EachRunStartsAnEmptyLog()
    {
        guard(QLatin1StringView(" in MainForm, x"), [] { Fail(6); });
        OpenErrorLog(m_path);
        QCOMPARE(Log(), QByteArray());
        QCOMPARE(g_iErrCount, std::int16_t{0});
        QVERIFY_EXCEPTION_THROWN(OpenErrorLog(m_folder.filePath(QStringLiteral("gone/planner.err"))), RunTimeError);
    }

    void WhatASignalRunsEndsThereToo()
    {
        auto sender = std::make_unique<QObject>();
        const QObject* heard = nullptr;
        connect(sender.get(), &QObject::destroyed, this,
                Guarded(QLatin1StringView(" in MainForm, x"), [&](const QObject* gone) { heard = gone; }));
        connect(sender.get(), &QObject::destroyed, this,
                Guarded(QLatin1StringView(" in MainForm, y"), [] { Fail(91); }));
        const QObject* const expected = sender.get();
        sender.reset();
        QCOMPARE(heard, expected);
        QCOMPARE(Log(), QByteArray(" 1:it broke in MainForm, y\n"));

        int counted = 3;
        Guarded(QLatin1StringView(" in MainForm, z"), [](int& number) { ++number; })(counted); // not a copy
        QCOMPARE(counted, 4);
    }

    void WithoutTheTrapErrorsTravel()
    {
        g_bErrorTrap = false;
        const ErrorTail tail(QLatin1StringView(" in MODSHOW, x"));
        QVERIFY_EXCEPTION_THROWN(tail([] { Fail(6); }), RunTimeError);
    }
};

QTEST_APPLESS_MAIN(ErrorTailTest)
#include "errortailtest.moc"
