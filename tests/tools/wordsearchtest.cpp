#include "tools/wordsearch.h"

#include "errorof.h"
#include "failingstore.h"
#include "planners.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/testserver.h"
#include "platform/richtext/rtfwriter.h"
#include "support.h"

#include <QDate>
#include <QTextCursor>
#include <QTextDocument>

#include <random>

namespace {
struct Tongue
{
    const char* coded; // "Milk" and more in a code page, with its fonts
    const char16_t* text;
};

constexpr Tongue Tongues[] = {
    {"\\fcharset0 A;}}M\\'fcller gr\\'fc\\'dft", u"Müller grüßt"},
    {"\\fcharset0 A;}}cr\\'e8me br\\'fbl\\'e9e", u"crème brûlée"},
    {"\\fcharset204 A;}}\\'cc\\'ee\\'eb\\'ee\\'ea\\'ee", u"Молоко"},
    {"\\fcharset161 A;}}\\'c3\\'dc\\'eb\\'e1", u"Γάλα"},
    {"\\fcharset162 A;}}I\\'fe\\'fdk \\'ddncir", u"Işık İncir"},
    {"\\fcharset238 A;}}\\'a3\\'f3d\\'9f mleko", u"Łódź mleko"},
    {"\\fcharset134 A;}}\\'c5\\'a3\\'c4\\'cc", u"牛奶"},
    {"\\fcharset177 A;}}\\'e7\\'ec\\'e1 \\'e8\\'f8\\'e9", u"חלב טרי"},
};

// The words in random company, in one of the ways in which notes are stored.
QByteArray Stored(int way, const Tongue& tongue, const QString& text)
{
    if (way == 0) return text.toUtf8();
    if (way == 1) return QByteArray("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0") + tongue.coded + "}";
    QTextDocument document(text);
    QTextCursor cursor(&document);
    cursor.setPosition(2); // a word in two formats is one word
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.mergeCharFormat(bold);
    return WriteRtf(document);
}

QString TextOf(int way, const Tongue& tongue, int day)
{
    const QString text = QString::fromUtf16(tongue.text);
    return way == 1 ? text : u"%1 rtf1 %2\nfonttbl"_s.arg(text).arg(day);
}

QStringList KeysOf(const std::vector<NoteHit>& found)
{
    QStringList keys;
    for (const NoteHit& hit : found)
        keys += hit.key;
    return keys;
}
} // namespace

class WordSearchTest : public QObject
{
    Q_OBJECT

    static constexpr int Days = 480;
    const TemporaryFolders m_folders;
    const QString m_path = m_folders.Path(u"search.mdb"_s);
    QMap<QDate, QString> m_texts;

    static QString KeyOf(const QDate& day) { return ::KeyOf(GridDay{day.year(), day.month(), day.day()}); }

    // In no order, as people write them.
    Database Make(bool onServer)
    {
        m_texts.clear();
        QFile::remove(m_path);
        Database planner = MakePlanner(m_path);
        std::vector<int> days(Days);
        std::iota(days.begin(), days.end(), 0);
        std::shuffle(days.begin(), days.end(), std::minstd_rand(1));
        Recordset notes = ::Days(planner);
        {
            WriteTransaction writing(planner);
            for (const int day : days) {
                const int way = day % 3;
                const Tongue& tongue = Tongues[day / 3 % std::size(Tongues)];
                const QString text = TextOf(way, tongue, day);
                const QDate date = QDate(1999, 1, 1).addDays(day);
                m_texts[date] = text;
                Write(notes, KeyOf(date), Stored(way, tongue, text));
            }
            Write(notes, u"1999/2/30"_s, "Milk of no day");
            writing.Commit();
        }
        notes.Close();
        planner.Close();
        if (onServer) TestServer::Get().Take(m_path);
        return DBEngine::OpenDatabase(m_path);
    }

    QStringList Expected(const QString& word) const
    {
        QStringList keys;
        for (auto text = m_texts.cbegin(); text != m_texts.cend(); ++text)
            if (text->contains(word, Qt::CaseInsensitive)) keys += KeyOf(text.key());
        return keys;
    }

    static QStringList Found(const Database& planner, const QString& words, const WordSearch::Unsaved& unsaved = {})
    {
        WordSearch search;
        search.Begin(planner, WordQuery(words), unsaved);
        while (!search.IsDone())
            search.Step(QDeadlineTimer(1000));
        return KeysOf(search.Found());
    }

private Q_SLOTS:
    void FindsWhatAPlainScanFinds_data() { AddStores(); }
    void FindsWhatAPlainScanFinds()
    {
        QFETCH(bool, onServer);
        const Database planner = Make(onServer);
        for (const char16_t* word : {u"müller", u"GRÜẞT", u"brûlée", u"молоко", u"γάλα", u"ncir", u"łódź", u"牛奶",
                                     u"טרי", u"rtf1", u"fonttbl", u"f0", u"charset", u"milk", u"1"}) {
            const QString text = QString::fromUtf16(word);
            const InRow inRow(this, text);
            QCOMPARE(Found(planner, text), Expected(QString(text).replace(u'ẞ', u'ß')));
        }
        QCOMPARE(Found(planner, u"muller"_s), Expected(u"müller"_s));
        // What is typed counts, not what is stored.
        const QString typed = KeyOf(QDate(1999, 1, 2));
        QVERIFY(Found(planner, u"müller"_s).contains(typed));
        QVERIFY(!Found(planner, u"müller"_s, {{typed, "{\\rtf1 tea}"}}).contains(typed));
        QCOMPARE(Found(planner, u"tea"_s, {{typed, "{\\rtf1 tea}"}, {u"1999/4/Memo2"_s, "TEA"}, {u"1999/4/1"_s, ""}}),
                 QStringList({typed, u"1999/4/Memo2"_s}));
    }

    void NarrowsAndGoesOn()
    {
        const FailingStores failing;
        const Database planner = Make(false);
        WordSearch search;
        search.Begin(planner, WordQuery(u"m"_s), {});
        *failing.plan = {2, FailurePlan::Before, {engineerrors::Busy, u"busy"_s}, u"Page"_s};
        QCOMPARE(ErrorOf([&] { search.Step(QDeadlineTimer(10000)); }), engineerrors::Busy);
        for (const char16_t* word : {u"mü", u"mül", u"müller"})
            search.Narrow(WordQuery(QString::fromUtf16(word)));
        while (!search.IsDone())
            search.Step(QDeadlineTimer(1));
        QCOMPARE(KeysOf(search.Found()), Expected(u"müller"_s));
    }

    void WhileAnotherUserWrites_data() { AddStores(); }
    void WhileAnotherUserWrites()
    {
        QFETCH(bool, onServer);
        const Database planner = Make(onServer);
        OtherProgram other;
        QCOMPARE(other.Open(m_path, false), u"0"_s);
        WordSearch search;
        search.Begin(planner, WordQuery(u"müller"_s), {});
        const auto revision = planner.Revision();
        QStringList changed;
        for (int day = 0; !search.IsDone(); day += 7) {
            search.Step(QDeadlineTimer(1));
            changed += KeyOf(QDate(1999, 1, 1).addDays(day));
            QCOMPARE(other.Do({u"write"_s, changed.back(), u"tea"_s}), u"0"_s);
        }
        QStringList found = KeysOf(search.Found()), expected = Expected(u"müller"_s);
        for (const QString& key : changed) {
            found.removeAll(key);
            expected.removeAll(key);
        }
        QVERIFY(expected.size() > 20);
        QCOMPARE(found, expected);
        QVERIFY(QTest::qWaitFor([&] { return planner.Revision() != revision; }));
        for (const QString& key : Found(planner, u"müller"_s))
            QVERIFY(!changed.contains(key));
    }

    void EndsWithThePlanner()
    {
        Database planner = Make(false);
        WordSearch search;
        search.Begin(planner, WordQuery(u"m"_s), {});
        planner.Close();
        QCOMPARE(ErrorOf([&] { search.Step(QDeadlineTimer(1)); }), engineerrors::Closed);
        DBEngine::DeleteDatabase(m_path); // nothing keeps it open
        QVERIFY(!QFile::exists(m_path));
    }
};

ORRELIN_TEST(WordSearchTest)
#include "wordsearchtest.moc"
