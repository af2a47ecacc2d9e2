#include "tools/wordquery.h"

#include "testmain.h"

class WordQueryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What of the text is marked first; "-" if the text is not found.
    void Finds()
    {
        const struct
        {
            const char16_t *typed, *text, *found;
        } rows[] = {
            {u"MILK", u"buy Milk", u"Milk"},
            {u"cafe", u"Im CAFÉ", u"CAFÉ"},
            {u"café", u"the cafe, the CAFÉ", u"CAFÉ"},
            {u"café", u"the cafe", u"-"},
            {u"café", u"the cafe\u0301!", u"cafe\u0301"}, // the accent by itself
            {u"cafe\u0301", u"café", u"café"},
            {u"resumé", u"résumé", u"résumé"},
            {u"strasse", u"Hauptstraße 9", u"straße"},
            {u"STRAßE", u"Strasse", u"Strasse"},
            {u"oeuvre", u"chef-d’œuvre", u"œuvre"},
            {u"d'oeuvre", u"chef-d’œuvre", u"d’œuvre"},
            {u"lodz", u"w Łodzi", u"Łodz"},
            {u"istanbul", u"İSTANBUL", u"İSTANBUL"},
            {u"isik", u"bir ışık", u"ışık"},
            {u"γαλα", u"ΓΆΛΑ", u"ΓΆΛΑ"},
            {u"ΟΔΟΣ", u"μία οδός", u"οδός"},
            {u"елка", u"Ёлка", u"Ёлка"},
            {u"мои", u"мой", u"-"}, // another letter
            {u"か", u"が", u"-"},
            {u"牛奶", u"买牛奶吧", u"牛奶"},
            {u"שלום", u"שָׁלוֹם", u"שָׁלוֹם"},
            {u"احمد", u"أحمد", u"أحمد"},
            {u"😀", u"so 😀!", u"😀"},
            {u"software", u"soft\u00ADware", u"soft\u00ADware"},
            {u"a b", u"x a\u00A0b", u"a"},
            {u"\"a b\"", u"x a\u00A0b", u"a\u00A0b"},
            {u"milk bread", u"bread and milk", u"milk"},
            {u"milk bread", u"milk", u"-"},
            {u"\"red wine", u"wine, red wine", u"red wine"}, // the end of the quotes is not typed yet
            {u"\"red wine\" tea", u"tea, red\nwine", u"-"},
            {u"den*st", u"a dentist, a dentist", u"dentist"},
            {u"\"at #?#", u"at noon, at 9:30, at 9:3", u"at 9:3"},
            {u"[a-c]at", u"hat Bat", u"Bat"},
            {u"[!a-c]at", u"bat hat", u"hat"},
            {u"[*]", u"a* b", u"*"},
            {u"[a", u"x[A", u"[A"},
            {u"*", u"anything", u"-"},
            {u" \" ", u"anything", u"-"},
        };
        for (const auto& [typed, text, found] : rows) {
            const InRow inRow(this, QString::fromUtf16(typed) + u" in "_s + QString::fromUtf16(text));
            const QString whole = QString::fromUtf16(text);
            const auto span = WordQuery(QString::fromUtf16(typed)).FirstIn(whole);
            QCOMPARE(span ? whole.sliced(span->at, span->length) : u"-"_s, QString::fromUtf16(found));
        }
    }

    void MarksEveryWordOnce()
    {
        const auto spans = WordQuery(u"ana an"_s).AllIn(u"Banana, Straße an"_s);
        const std::vector<FoundSpan> expected = {{1, 4}, {15, 2}};
        QCOMPARE(spans, expected);
        QCOMPARE(WordQuery(u"gros"_s).AllIn(u"groß"_s), std::vector<FoundSpan>({{0, 4}}));
    }

    void KnowsWhatNarrows()
    {
        const auto narrows = [](const char16_t* typed, const char16_t* former) {
            return WordQuery(QString::fromUtf16(typed)).Narrows(WordQuery(QString::fromUtf16(former)));
        };
        QVERIFY(narrows(u"milk", u"mil"));
        QVERIFY(narrows(u"\"red wine\"", u"red"));
        QVERIFY(narrows(u"milk b", u"milk"));
        QVERIFY(narrows(u"café", u"cafe"));
        QVERIFY(!narrows(u"cafe", u"café"));
        QVERIFY(!narrows(u"bread", u"milk bread"));
        QVERIFY(!narrows(u"mi*lk", u"mi"));
        QVERIFY(!narrows(u"milk", u""));
    }
};

ORRELIN_TEST(WordQueryTest)
#include "wordquerytest.moc"
