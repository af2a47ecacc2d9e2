// Several processes with one settings file. The others are this program, started with a task and a folder.
#include "platform/profile/profile.h"
#include "support.h"
#include "testmain.h"

namespace {
constexpr int keysOfEach = 100;
const QString iniName = u"PLANNER.INI"_s;

int WriteKeys(const QString& folder, const QString& writer, bool forever)
{
    folders::SetRootForTests(folder);
    for (int i = 0; forever || i < keysOfEach; ++i) {
        const QString key = writer + QString::number(i % keysOfEach);
        if (!WritePrivateProfileStringA(u"Keys"_s, key, QString(key).repeated(9), iniName)) return 1;
        if (!WritePrivateProfileStringA(u"Count"_s, writer, QString::number(i + 1), iniName)) return 1;
    }
    return 0;
}

// Prints the environment's date order and decimal point.
int TellFormats(const QString& folder)
{
    folders::SetRootForTests(folder);
    const QString win = u"WIN.INI"_s;
    const QString intl = u"intl"_s;
    const int order = GetPrivateProfileIntA(intl, u"iDate"_s, 7, win);
    const QString point = GetPrivateProfileStringA(intl, u"sDecimal"_s, u"x"_s, 2, win);
    QTextStream(stdout) << order << point;
    return 0;
}
} // namespace

class ProfileProcessesTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<TemporaryFolders> m_folders;

    void Start(QProcess& writer, const QString& name, const QString& manner) const
    {
        writer.setProcessChannelMode(QProcess::ForwardedChannels);
        StartAgain(writer, u"ProfileProcess"_s, {manner, m_folders->Path(u"."_s), name});
        QVERIFY(writer.waitForStarted());
    }

    static int Count(const QString& writer) { return GetPrivateProfileIntA(u"Count"_s, writer, 0, iniName); }

    // Every line of the file must be complete.
    static void LookForTears()
    {
        QFile file(folders::WindowsDirectory() + u'/' + iniName);
        if (!file.open(QIODevice::ReadOnly)) return; // not written yet
        const QByteArray text = file.readAll();
        QVERIFY(text.endsWith('\n'));
        for (const QByteArray& line : text.chopped(1).split('\n')) {
            const QByteArray key = line.left(line.indexOf('='));
            if (!line.startsWith('[') && key.size() > 1) QCOMPARE(line, key + '=' + key.repeated(9));
        }
    }

private Q_SLOTS:
    void init() { m_folders = std::make_unique<TemporaryFolders>(); }
    void cleanup() { m_folders.reset(); }

    // One process writes all of its keys while the other is killed repeatedly.
    void NoneLosesTheOthersKeysAndAKilledOneHurtsNobody()
    {
        QProcess whole;
        Start(whole, u"a"_s, u"--write"_s);
        int kills = 0;
        for (; whole.state() != QProcess::NotRunning || kills < 12; ++kills) {
            QVERIFY(WritePrivateProfileStringA(u"Count"_s, u"b"_s, u"0"_s, iniName));
            QProcess killed;
            Start(killed, u"b"_s, u"--forever"_s);
            QTRY_VERIFY_WITH_TIMEOUT(Count(u"b"_s) > 0, 30000);
            QTest::qWait(kills % 12);
            QCOMPARE(killed.state(), QProcess::Running);
            killed.kill();
            QVERIFY(killed.waitForFinished());
            LookForTears();
        }
        QCOMPARE(whole.exitCode(), 0);
        QCOMPARE(Count(u"a"_s), keysOfEach);
        for (int i = 0; i < keysOfEach; ++i) {
            const QString key = u'a' + QString::number(i);
            QCOMPARE(GetPrivateProfileStringA(u"Keys"_s, key, {}, 99, iniName), key.repeated(9));
        }
    }

    void TheDesktopSpeaksWhereWinIniHasNoIntl()
    {
        const std::tuple<const char*, QString, QByteArray> rows[] = {
            {"us", u"en_US.UTF-8"_s, "0."},
            {"german", u"de_DE.UTF-8"_s, "1,"},
            {"swedish", u"sv_SE.UTF-8"_s, "2,"},
        };
        for (const auto& [name, locale, formats] : rows) {
            const InRow inRow(this, name);
            QProcess other;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(u"LC_ALL"_s, locale);
            other.setProcessEnvironment(environment);
            StartAgain(other, u"ProfileProcess"_s, {u"--formats"_s, m_folders->Path(u"."_s)});
            QVERIFY(other.waitForFinished());
            QCOMPARE(other.readAllStandardOutput(), formats);
        }
    }
};

static const Runnable runProfileProcess("ProfileProcess", [](int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    return words.size() == 4 ? WriteKeys(words[2], words[3], words[1] == u"--forever") : TellFormats(words[2]);
});

ORRELIN_TEST(ProfileProcessesTest)

#include "profileprocessestest.moc"
