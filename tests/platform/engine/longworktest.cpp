// Long work tells how far it is. Cancelled at any moment, it changes nothing.
#include "platform/engine/longwork.h"

#include "damagetesting.h"
#include "platform/desktop/folders.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"
#include "testserver.h"

#include <QDir>

class LongWorkTest : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    QString m_path, m_made;

    QMap<QString, QByteArray> Files() const // without the files of locks
    {
        QMap<QString, QByteArray> files;
        for (const QFileInfo& file : QDir(m_folder->path()).entryInfoList(QDir::Files | QDir::Hidden))
            if (!file.fileName().endsWith(".ldb"_L1)) files[file.fileName()] = Content(file.filePath());
        return files;
    }

    void CancelAnywhere(const std::function<void()>& work) const
    {
        const auto before = Files();
        const auto planners = [this] { return std::pair(Content(m_path), QFile::exists(m_made)); };
        const auto untouched = planners();
        for (int at = 0;; at = at * 2 + 1) {
            int calls = 0;
            double last = 0;
            bool rises = true, mayEnd = true; // a Cancel at the last call would leave all as it was, too
            longwork::SetWatch([&](double done) {
                rises = rises && done >= last && done <= 1;
                mayEnd = mayEnd && planners() == untouched;
                last = done;
                return calls++ < at;
            });
            QString text;
            const int error = ErrorOf(work, &text);
            longwork::SetWatch(nullptr);
            QVERIFY(rises && mayEnd);
            if (calls <= at) { // it was through before
                QVERIFY2(error == 0, qPrintable(text));
                QVERIFY2(calls > 5, qPrintable(QString::number(calls)));
                return;
            }
            QVERIFY2(error == engineerrors::Cancelled, qPrintable(u"%1 at %2: "_s.arg(error).arg(at) + text));
            QVERIFY2(Files() == before, qPrintable(QString::number(at) + Files().keys().join(u' ')));
        }
    }

private Q_SLOTS:
    void CancelledAnywhereItChangesNothing()
    {
        Database opened;
        TestServer& server = TestServer::Get();
        const auto damage = [&] {
            QByteArray content = Content(m_path);
            for (const qsizetype page : {20, 41})
                content.replace(page * 4096, 4096, QByteArray(4096, 'x'));
            SetContent(m_path, content);
        };
        const auto old = [&] {
            SetContent(m_path, Content(QStringLiteral(SAMPLE)));
            folders::SetRootForTests(m_folder->path());
            QDir(m_folder->path()).mkdir(u"shipped"_s);
            QFile::link(QStringLiteral(READER), m_folder->filePath(u"shipped/orrelin-readjet"_s));
        };
        const auto repair = [&] { DBEngine::RepairDatabase(m_path, {DayTable(), AlarmTable()}); };
        const auto compact = [&] { DBEngine::CompactDatabase(m_path, m_made, {DayTable()}); };
        const std::tuple<const char*, std::function<void()>, std::function<void()>> rows[] = {
            {"compact", [] {}, compact},
            {"replace", compact, [&] { DBEngine::ReplaceDatabase(m_made, m_path); }},
            {"repair", damage, repair},
            {"repair with a journal",
             [&] {
                 CrashWhileSaving(m_path);
                 damage();
             },
             repair},
            {"convert", old, compact},
            {"move to a server", [] {}, [&] { DBEngine::MoveToServer(m_path, server.Uri(u"long"_s)); }},
            {"save to a file",
             [&] {
                 server.Take(m_path);
                 opened = DBEngine::OpenDatabase(m_path);
             },
             [&] { opened.SaveToFile(m_made); }},
        };
        for (const auto& [name, prepare, work] : rows) {
            const InRow inRow(this, name);
            m_folder.emplace();
            m_path = m_folder->filePath(u"notes.mdb"_s);
            m_made = m_folder->filePath(u"made.mdb"_s);
            MakeFullPlanner(m_path);
            prepare();
            CancelAnywhere(work);
            folders::SetRootForTests({});
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(LongWorkTest)
#include "longworktest.moc"
