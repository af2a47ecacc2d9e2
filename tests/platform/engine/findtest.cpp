#include "enginetesting.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/textview.h"
#include "platform/richtext/rtftextview.h"
#include "testmain.h"
#include "testserver.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace engineerrors;

// Words in notes as they are stored, by the view of rich text, on both stores.
class FindTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    Database m_database;
    int m_count = 0;

    // In the order of the keys.
    void Fill(const QByteArrayList& texts)
    {
        Recordset days = Days(m_database);
        WriteTransaction writing(m_database);
        for (int i = 0; i < texts.size(); ++i) {
            days.AddNew();
            days.SetField(u"qmtDate"_s, u"%1"_s.arg(i, 6, 10, QChar(u'0')));
            days.SetField(u"qmtText"_s, texts[i]);
            days.Update();
        }
        writing.Commit();
    }

    QList<int> Walk(const QString& pattern)
    {
        QList<int> found;
        Recordset walk = m_database.CreateDynaset(u"QMT Table"_s);
        const QString criterion = u"[qmtText] LIKE '%1'"_s.arg(pattern);
        for (walk.FindLast(criterion); !walk.NoMatch(); walk.FindPrevious(criterion))
            found += walk.Fields(u"qmtDate"_s).toInt();
        return found;
    }

private Q_SLOTS:
    void initTestCase_data() { AddStores(); }
    void initTestCase() { SetTextView(RtfTextView); }

    void init() { m_database = MakeStore(m_folder.filePath(u"%1.mdb"_s.arg(++m_count)), DayTable()); }

    void WordsAreFoundAsTheyAreTyped()
    {
        const QByteArray head = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}"
                                "{\\f1\\fnil\\fcharset161 Arial Greek;}{\\f2\\fnil\\fcharset128 MS Gothic;}"
                                "{\\f3\\fnil\\fcharset2 {\\*\\panose 05}Symbol;}}\\viewkind4\\uc1\\pard\\f0 ";
        const QString german = u"FÜR GRÖßE"_s, french = u"déjÀ Œuvre"_s;
        const QString greek = u"ΚΑΛΗΜΈΡΑΣ"_s, japanese = u"日本ソフト"_s;
        const std::tuple<const char*, QByteArray, QString> rows[] = {
            {"German, units", head + "f\\u252?r Gr\\u246?\\u223?e" + '}', german},
            {"German, bytes", head + "f\\'fcr Gr\\'f6\\'dfe" + '}', german},
            {"German, raw", head + "f\xfcr Gr\xf6\xdf\x65" + '}', german},
            {"German, between codes", head + "\\b f\\u252\\'fcr Gr\\u-10?\\b0\\uc0\\u246\\uc2\\u223 sse!" + '}',
             u"ße!"_s},
            {"capital sharp s", head + "Gr\\'f6\\u7838?e" + '}', u"größe"_s},
            {"French, units", head + "D\\u233?j\\u224? \\u339?uvre" + '}', french},
            {"French, bytes", head + "d\\'e9j\\'e0 \\'9cuvre" + '}', french},
            {"French, Macintosh", head + "\\mac d\\'8ej\\'88 \\'cfuvre" + '}', french},
            {"French, quotes", head + "\\lquote a\\rquote\\emdash b\\~c" + '}', u"‘A’—B\u00a0C"_s},
            {"Greek, units", head + "\\u954?\\u945?\\u955?\\u951?\\u956?\\u941?\\u961?\\u945?\\u962?" + '}', greek},
            {"Greek, bytes", head + "\\f1\\'ea\\'e1\\'eb\\'e7\\'ec\\'dd\\'f1\\'e1\\'f2\\f0 caf\\'e9" + '}',
             greek + u"\\F0 cafÉ"_s},
            {"Greek, of the symbol font", head + "{\\f3 \\'61\\'62}\\'e9" + '}', u"ΑΒ}É"_s},
            {"Japanese, units", head + "\\u26085?\\u26412?\\u12477?\\u12501?\\u12488?" + '}', japanese},
            {"Japanese, bytes, broken lines", head + "\\f2\\'93\\'fa\\'96\r\n\\'7b\\'83\\\\\\'83t\\'83\\'67" + '}',
             japanese},
            {"beyond the first plane", head + "\\u-10179?\\u-8704?" + '}', u"\U0001F600"_s},
            {"plain text", "Καλημέρας", greek},
            {"plain text, old bytes", "gr\xf6\xdf\x65", u"GRÖßE"_s},
        };
        for (const auto& [name, stored, word] : rows) {
            const InRow inRow(this, name);
            Fill({"{\\rtf1 other}", stored, "{\\rtf1 f\\'fbr \\u26085?\\'81 Gr\\'f6\\'dfte}"});
            QCOMPARE(Walk(u'*' + word + u'*'), QList<int>{1});
        }
    }

    void CodesAreTextLikeAnyOther()
    {
        Fill({"{\\rtf1\\b bold}", "{\\rtf1\\pard x\\par}", "{\\rtf1 p\xc3\xa4r}"});
        QCOMPARE(Walk(u"*\\b bold*"_s), QList<int>{0});
        QCOMPARE(Walk(u"*par*"_s), QList<int>{1});
    }

    // The rules of folding: one character for one, and never ASCII for another.
    void PlacesStayWhenCaseIsFolded()
    {
        const QString text = u"aBÇ ẞß Σσς İı \u212A \U00010400"_s;
        const QString folded = FoldedCase(text);
        QCOMPARE(folded, u"abç ßß σσσ İı \u212A \U00010428"_s);
        QCOMPARE(folded.size(), text.size());
    }

    // More rows than any page of an answer has.
    void SearchesFindWhatAPlainScanFinds()
    {
        QRandomGenerator random(7);
        const QStringList words = {u"milk"_s, u"Zahnärztin"_s, u"ÉTÉ"_s,  u"Été42"_s,
                                   u"日本"_s, u"MILKY"_s,      u"7 pm"_s, u"Ωmega"_s};
        QStringList texts;
        QByteArrayList stored;
        for (int i = 0; i < 300; ++i) {
            QString text;
            for (int count = random.bounded(4); count >= 0; --count)
                text += words[random.bounded(int(words.size()))] + u' ';
            texts += text;
            stored += text.toUtf8();
        }
        Fill(stored);
        for (const QString& word : words + QStringList{u"ä"_s, u"k Ω"_s, u"absent"_s}) {
            QList<int> hits;
            for (int i = 0; i < texts.size(); ++i)
                if (texts[i].contains(word, Qt::CaseInsensitive)) hits += i;
            QVERIFY2(Walk(u'*' + word + u'*') == hits, qPrintable(word));
        }
    }

    void AWalkSeesWhatHasChangedAheadOfIt()
    {
        Fill({"word 1", "word 2", "word 3"});
        const QString criterion = u"[qmtText] LIKE '*word*'"_s;
        Recordset walk = m_database.CreateDynaset(u"QMT Table"_s);
        walk.FindLast(criterion);
        QCOMPARE(walk.Fields(u"qmtDate"_s).toInt(), 0);
        Recordset days = Days(m_database);
        days.Seek(u"="_s, u"000000"_s);
        days.Delete();
        Write(days, u"000001"_s, "changed");
        walk.FindPrevious(criterion);
        QCOMPARE(walk.Fields(u"qmtDate"_s).toInt(), 2);
        walk.FindPrevious(criterion);
        QVERIFY(walk.NoMatch());
        walk.MoveLast(); // the one before which the next search begins
        walk.FindPrevious(u"[qmtText] LIKE '*'"_s);
        QCOMPARE(walk.Fields(u"qmtText"_s).toByteArray(), QByteArray("word 3"));
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(FindTest)
#include "findtest.moc"
