// A planner compacted and replaced: nothing is lost, whatever is in the way and however the program ends.
#include "damagetesting.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace engineerrors;

class CompactTest : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    QString m_path, m_dummy;
    const QByteArray m_ids = "SELECT \"record id\", qmtDate FROM \"QMT Table\"; SELECT * FROM sqlite_sequence";

    QStringList Files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_path = m_folder->filePath(u"notes.mdb"_s);
        m_dummy = m_folder->filePath(u"dummy.mdb"_s);
        MakeFullPlanner(m_path);
    }

    void ACompactPlannerHasAllRowsAndLessRoom()
    {
        ::chmod(QFile::encodeName(m_path).constData(), 0640);
        const Notes notes = NotesIn(m_path);
        const auto ids = Ask(m_path, m_ids);
        const qint64 size = QFile(m_path).size();
        DBEngine::CompactDatabase(m_path, m_dummy);
        QVERIFY(NotesIn(m_dummy) == notes);
        ::chmod(QFile::encodeName(m_dummy).constData(), 0600);
        DBEngine::ReplaceDatabase(m_dummy, m_path);
        QVERIFY(NotesIn(m_path) == notes);
        QVERIFY(Ask(m_path, m_ids) == ids);
        QVERIFY(QFile(m_path).size() < size - 100000);
        struct stat status = {};
        ::stat(QFile::encodeName(m_path).constData(), &status);
        QCOMPARE(status.st_mode & 0777, 0640u);
        QCOMPARE(Files(), QStringList({u"notes.ldb"_s, u"notes.mdb"_s}));
        Database database = DBEngine::OpenDatabase(m_path);
        Recordset days = Days(database);
        QCOMPARE(Read(days, DayKey(100)), NoteText(100));
    }

    void WhatMayNotBeMadeCompactIsLeftAlone()
    {
        const QByteArray before = Content(m_path);
        const auto compact = [&](QString* text = nullptr) {
            return ErrorOf([&] { DBEngine::CompactDatabase(m_path, m_dummy); }, text);
        };
        SetContent(m_dummy, "mine");
        QCOMPARE(compact(), FileExists);
        QCOMPARE(Content(m_dummy), QByteArray("mine"));
        QFile::remove(m_dummy);
        QString text;
        {
            OtherProgram other;
            other.Open(m_path, false);
            QCOMPARE(compact(&text), InUse);
            QVERIFY2(text.contains("on machine"_L1), qPrintable(text));
            QCOMPARE(ErrorOf([&] { DBEngine::RepairDatabase(m_path); }), InUse);
            QCOMPARE(ErrorOf([&] { DBEngine::DeleteDatabase(m_path); }), InUse);
        }
        {
            const Database own = DBEngine::OpenDatabase(m_path, true);
            QCOMPARE(compact(), InUse);
            QCOMPARE(ErrorOf([&] { DBEngine::RepairDatabase(m_path); }), InUse);
        }
        {
            const DBEngine::AloneWith alone(m_path);
            OtherProgram other;
            QVERIFY(other.Open(m_path, false).startsWith(QString::number(InUse)));
            QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }), InUse);
        }
        // A damaged page of an index, with all rows readable.
        const int index = Ask(m_path, "SELECT pageno FROM dbstat WHERE name = 'qmtPrimaryKey'").last()[0].toInt();
        SetContent(m_path, QByteArray(before).replace(4096 * (index - 1), 4096, QByteArray(4096, '\x5a')));
        QCOMPARE(compact(&text), NotADatabase);
        QVERIFY2(text.contains("Repair"_L1), qPrintable(text));
        SetContent(m_path, "no planner at all");
        QCOMPARE(compact(), NotADatabase);
        QCOMPARE(Content(m_path), QByteArray("no planner at all"));
        QFile::remove(m_path);
        QCOMPARE(compact(), FileNotFound);
        QVERIFY(!QFile::exists(m_dummy));
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(CompactTest)
#include "compacttest.moc"
