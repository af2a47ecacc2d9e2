#include "platform/profile/profile.h"

#include "files.h"
#include "platform/runtime/errortail.h"
#include "support.h"
#include "testmain.h"

#include <QDir>

#include <sys/stat.h>

#include <fcntl.h>
#include <unistd.h>

class ProfileTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<TemporaryFolders> m_folders;
    const QString m_ini = u"PLANNER.INI"_s;

    static QString Path(const QString& name) { return folders::WindowsDirectory() + u'/' + name; }
    QByteArray Bytes() const { return Content(Path(m_ini)); }
    static void Put(const QByteArray& text, const QString& name = u"PLANNER.INI"_s) { SetContent(Path(name), text); }
    QString Text(const char* section, const char* key, int size = 1024) const
    {
        return GetPrivateProfileStringA(QString::fromUtf8(section), QString::fromUtf8(key), u"(None)"_s, size, m_ini);
    }
    int Number(const char* section, const char* key) const
    {
        return GetPrivateProfileIntA(QString::fromUtf8(section), QString::fromUtf8(key), 77, m_ini);
    }
    bool Write(const char* section, const char* key, const QString& value) const
    {
        return WritePrivateProfileStringA(QString::fromUtf8(section), QString::fromUtf8(key), value, m_ini);
    }

private Q_SLOTS:
    void init() { m_folders = std::make_unique<TemporaryFolders>(); }
    void cleanup() { m_folders.reset(); }

    void ValuesAreRead()
    {
        const std::tuple<const char*, QByteArray, QString, int> rows[] = {
            {"plain", "[S]\nKey=12\n", u"12"_s, 12},
            {"letter case, blanks", "[ s ]\r\n  kEY =  12  \r\n", u"12"_s, 12},
            {"first wins", "[S]\nKey=1\nKEY=2\n[s]\nkey=3\n", u"1"_s, 1},
            {"section in two parts", "[S]\n[T]\nKey=1\n[s]\nKey=2", u"2"_s, 2},
            {"comment and heading of keys", "Key=9\n[S]\n;Key=1\nkey\nKey=-2", u"-2"_s, -2},
            {"byte order mark", "\xEF\xBB\xBF[S]\nKey=+3", u"+3"_s, 3},
            {"quotes", "[S]\nKey=\" 4 \"\n", u" 4 "_s, 4},
            {"single quotes", "[S]\nKey='\"x\"'\n", u"\"x\""_s, 0},
            {"one quote", "[S]\nKey=\"\n", u"\""_s, 0},
            {"empty", "[S]\nKey=\n", u""_s, 0},
            {"equals in value", "[S]\nKey=a=b\n", u"a=b"_s, 0},
            {"utf-8", "[S]\nKey=Übung\n", u"Übung"_s, 0},
            {"colour", "[S]\nKey=&H808080\n", u"&H808080"_s, 0},
            {"number and text", "[S]\nKey=12 pt\n", u"12 pt"_s, 12},
            {"huge", "[S]\nKey=99999999999999999999999\n", u"99999999999999999999999"_s, INT_MAX},
            {"very negative", "[S]\nKey=-2147483649\n", u"-2147483649"_s, INT_MIN},
            {"absent", "[T]\nKey=1\n", u"(None)"_s, 77},
            {"no bracket", "[S\nKey=5", u"5"_s, 5},
            {"nothing but brackets", "[\n[]\n[[[\n]\n=\n==\n\n[S]\n=1\nKey=6", u"6"_s, 6},
            {"NUL bytes", QByteArray("\0\0[x]\n\0=\0\n[S]\n\0\nKey=7\n", 22), u"7"_s, 7},
            {"not utf-8", "[\xFF]\n\xC3=\x80\n[S]\nKey=8", u"8"_s, 8},
        };
        for (const auto& [name, file, text, number] : rows) {
            const InRow inRow(this, name);
            Put(file);
            QCOMPARE(Text("S", "KEY"), text);
            QCOMPARE(Number("S", "KEY"), number);
        }
    }

    void TheBufferCutsTheText()
    {
        Put("[S]\nKey=abcdef\nSmile=ab\xF0\x9F\x98\x80");
        QCOMPARE(Text("S", "Key", 4), u"abc"_s);
        QCOMPARE(Text("S", "Smile", 4), u"ab"_s); // cuts no character in half
        QCOMPARE(Text("S", "None", 3), u"(N"_s);
        QCOMPARE(Text("S", "Key", 0), QString());
    }

    void AWriteLeavesTheRestAlone()
    {
        const std::tuple<const char*, QByteArray, QByteArray> rows[] = {
            {"empty", "", "[S]\nKey=v\n"},
            {"only a mark", "\xEF\xBB\xBF", "\xEF\xBB\xBF[S]\nKey=v\n"},
            {"replaced", "; mine\n\n[s]\n key = \"old\"  \nz\xFFz\n", "; mine\n\n[s]\n key = v  \nz\xFFz\n"},
            {"was empty", "[S]\nKey=\n[T]\n", "[S]\nKey=v\n[T]\n"},
            {"only the first", "[S]\nKey=1\nKey=2\n", "[S]\nKey=v\nKey=2\n"},
            {"the one that is read", "[S]\na=1\n[T]\n[S]\nKey=2\n", "[S]\na=1\n[T]\n[S]\nKey=v\n"},
            {"new key", "[S]\r\na=1\r\n\r\n[T]\r\nKey=1\r\n", "[S]\r\na=1\r\nKey=v\r\n\r\n[T]\r\nKey=1\r\n"},
            {"first of two parts", "[S]\na=1\n[T]\n[s]\nb=2\n", "[S]\na=1\nKey=v\n[T]\n[s]\nb=2\n"},
            {"no line break at the end", "[S]\na=1", "[S]\na=1\nKey=v\n"},
            {"new section", "[T]\nKey=1", "[T]\nKey=1\n[S]\nKey=v\n"},
            {"torn heading", "[T]\n[S", "[T]\n[S\nKey=v\n"},
        };
        for (const auto& [name, before, after] : rows) {
            const InRow inRow(this, name);
            if (!before.isEmpty()) Put(before);
            QVERIFY(Write("S", "Key", u"v"_s));
            QCOMPARE(Bytes(), after);
            QCOMPARE(Text("s", "KEY"), u"v"_s);
        }
    }

    void WhatIsWrittenIsReadBack_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("read");
        for (const char* same : {"", "&HFF&", "c:\\a b.mdb", "a=b;c", "[x]", " edge ", "\"said\"", "'", "Ω\tπ"}) {
            QTest::newRow(same) << QString::fromUtf8(same) << QString::fromUtf8(same);
        }
        QTest::newRow("line breaks") << u"a\r\nb\n[T]\rc"_s << u"a b [T] c"_s;
    }

    void WhatIsWrittenIsReadBack()
    {
        QFETCH(QString, value);
        QVERIFY(Write("S", "Key", value));
        QTEST(Text("S", "Key"), "read");
        QCOMPARE(Text("T", "c"), u"(None)"_s);
    }

    void NamesThatNoFileCanHoldAreRefused()
    {
        for (const char* key : {"", "a=b", ";a", "[a", "a\nb", " a"})
            QVERIFY(!Write("S", key, u"v"_s));
        QVERIFY(!Write("a]", "Key", u"v"_s));
        QCOMPARE(Bytes(), QByteArray("no file"));
    }

    // An editor that saves in place, with the same size and within one tick of a coarse clock.
    void ChangesFromOutsideAreSeen()
    {
        timespec times[2] = {};
        QCOMPARE(::clock_gettime(CLOCK_REALTIME, &times[0]), 0);
        times[1] = times[0];
        for (int i = 1; i < 5; ++i) {
            Put("[S]\nKey=" + QByteArray::number(i));
            QCOMPARE(::utimensat(AT_FDCWD, QFile::encodeName(Path(m_ini)).constData(), times, 0), 0);
            QCOMPARE(Number("S", "Key"), i);
        }
        QVERIFY(QFile::remove(Path(m_ini)));
        QCOMPARE(Number("S", "Key"), 77);
    }

    void ABatchIsOneReplacement()
    {
        Put("[S]\na=1\n");
        {
            const ProfileBatch batch(m_ini);
            QVERIFY(Write("S", "a", u"2"_s));
            QVERIFY(Write("S", "b", u"3"_s));
            QVERIFY(!Write("S", "=", u"3"_s));
            QCOMPARE(Number("S", "a") + Number("S", "b"), 5);
            QCOMPARE(Bytes(), QByteArray("[S]\na=1\n"));
            Put("[S]\na=1\nc=4\n"); // written by another program
            QCOMPARE(Number("S", "b") + Number("S", "c"), 7);
        }
        QCOMPARE(Bytes(), QByteArray("[S]\na=2\nc=4\nb=3\n"));
        QVERIFY(Write("S", "a", u"5"_s));
        QCOMPARE(Number("S", "a"), 5);
    }

    void FoldersLinksAndPermissionsStay()
    {
        QVERIFY(QDir(folders::WindowsDirectory()).removeRecursively());
        QVERIFY(Write("S", "a", u"0"_s));
        QVERIFY(QFile::remove(Path(m_ini)));
        const QString target = m_folders->Path(u"dotfile"_s);
        QVERIFY(QFile::link(target, Path(m_ini)));
        QVERIFY(Write("S", "a", u"1"_s)); // the link's target did not exist yet
        QVERIFY(QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        QVERIFY(Write("S", "a", u"2"_s));
        QVERIFY(QFileInfo(Path(m_ini)).isSymLink());
        struct stat found = {};
        QCOMPARE(::stat(QFile::encodeName(target).constData(), &found), 0);
        QCOMPARE(int(found.st_mode & 0777), 0640);
        QCOMPARE(Number("S", "a"), 2);
    }

    void WhatIsNoFileIsLeftAlone_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"folder", "pipe", "circle of links", "over 64 MB"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

    void WhatIsNoFileIsLeftAlone()
    {
        QFETCH(QString, kind);
        const QByteArray path = QFile::encodeName(Path(m_ini));
        if (kind == u"folder") QCOMPARE(::mkdir(path.constData(), 0700), 0);
        if (kind == u"pipe") QCOMPARE(::mkfifo(path.constData(), 0600), 0);
        if (kind == u"circle of links") QCOMPARE(::symlink("PLANNER.INI", path.constData()), 0);
        if (kind == u"over 64 MB") Put("[S]\nKey=1\n");
        if (kind == u"over 64 MB") QVERIFY(QFile::resize(Path(m_ini), 65 * 1024 * 1024));
        const QFileInfo before(Path(m_ini));
        QCOMPARE(Number("S", "Key"), 77);
        QVERIFY(!Write("S", "Key", u"2"_s));
        QCOMPARE(QFileInfo(Path(m_ini)).size(), before.size());
    }

    void WhatCannotBeReadIsAsItWas()
    {
        Put("[S]\nKey=v\n");
        QCOMPARE(Text("S", "Key"), u"v"_s);
        QVERIFY(QFile::remove(Path(m_ini)) && QDir().mkdir(Path(m_ini)));
        QCOMPARE(Text("S", "Key"), u"v"_s);
        const std::int16_t errors = g_iErrCount;
        {
            const ProfileBatch batch(m_ini);
            Write("S", "Key", u"w"_s);
            QCOMPARE(Text("S", "Key"), u"w"_s);
        }
        QCOMPARE(g_iErrCount, std::int16_t(errors + 1)); // logged, at least
        QVERIFY(QDir().rmdir(Path(m_ini)));
        QCOMPARE(Text("S", "Key"), u"(None)"_s);
    }

    void LargeFilesAreRead_data()
    {
        QTest::addColumn<QByteArray>("junk");
        QByteArray keys;
        for (int i = 0; i < 300'000; ++i)
            keys += "key" + QByteArray::number(i) + "=\n";
        QTest::newRow("one line") << QByteArray(10'000'000, 'x');
        QTest::newRow("one heading") << QByteArray(10'000'000, '[');
        QTest::newRow("many keys") << keys;
        QTest::newRow("line breaks only") << QByteArray(10'000'000, '\n');
    }

    void LargeFilesAreRead()
    {
        QFETCH(QByteArray, junk);
        Put("[S]\n" + junk + "\n[T]\nKey=1\n");
        QCOMPARE(Number("T", "Key"), 1);
        QVERIFY(Write("S", "key299999", u"2"_s));
        QCOMPARE(Number("S", "key299999"), 2);
        QCOMPARE(Number("T", "Key"), 1);
    }

    void WinIniIsAskedBeforeTheDesktop()
    {
        const QString win = u"WIN.INI"_s;
        const auto order = [](const QString& file) { return GetPrivateProfileIntA(u"INTL"_s, u"idate"_s, 7, file); };
        Put("[intl]\niDate=2\n", win);
        QCOMPARE(order(win), 2);
        Put("[Intl]\nsDecimal=;\n", win);
        QCOMPARE(order(win), 7);
        QCOMPARE(order(m_ini), 7);
        Put("", win);
        QVERIFY(order(win) != 7);
    }
};

ORRELIN_TEST(ProfileTest)
#include "profiletest.moc"
