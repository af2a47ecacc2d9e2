// Words of a text, and the dictionaries that know them.
#include "platform/spelling/speller.h"

#include "files.h"
#include "platform/spelling/words.h"
#include "support.h"
#include "testmain.h"

#include <QLocale>

namespace {
QStringList Texts(const QString& text)
{
    QStringList words;
    for (TextSpan part = NextBetweenBlanks(text, 0); part.start < part.end; part = NextBetweenBlanks(text, part.end))
        for (const TextSpan& word : WordsIn(QStringView(text).sliced(part.start, part.end - part.start)))
            words += PlainWord(QStringView(text).sliced(part.start + word.start, word.end - word.start));
    return words;
}

DictionaryFiles Installed(const QString& name)
{
    for (const DictionaryFiles& one : InstalledDictionaries())
        if (one.name == name) return one;
    return {};
}
} // namespace

class SpellerTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<TemporaryFolders> m_folders;

    DictionaryFiles Written(const QString& name, const QByteArray& rules, const QByteArray& words)
    {
        SetContent(m_folders->Path(name + u".aff"_s), rules);
        SetContent(m_folders->Path(name + u".dic"_s), words);
        return {name, m_folders->Path(name)};
    }
    QString PersonalFile() { return m_folders->Path(u"words.txt"_s); }

private Q_SLOTS:
    void init() { m_folders = std::make_unique<TemporaryFolders>(); }
    void cleanup() { SetDictionaryFoldersForTests({}); }

    void wordsOfAText()
    {
        for (const auto& [what, text, words] : Rows<const char*, const char*>{
                 {"plain", "See you, (then) \"again\"!", "See you then again"},
                 {"apostrophes", "don't don\u2019t 'tis dogs' rock'n'roll", "don't don't tis dogs rock'n'roll"},
                 {"soft hyphens", "Wort\u00adende", "Wortende"},
                 {"hyphens and strokes", "well-known and/or a\u2014dash", "well known and or dash"},
                 {"digits", "2nd B12 12:30 x_ray plain", "plain"},
                 {"addresses", "www.orrelin.org http://a.bc/de mail me@home.net, orrelin.org or.", "mail or"},
                 {"paths", "/usr/bin ~/notes C:\\Temp ./run src/main.cpp a/bc/de report.pdf (/etc/hosts) here", "here"},
                 {"capitals", "ABC NATO Nato", "Nato"},
                 {"single letters", "a b z.B. I", ""},
                 {"other letters", "\u00dcbung \u043f\u0440\u0438\u0432\u0435\u0442 \U00010428\U00010429",
                  "\u00dcbung \u043f\u0440\u0438\u0432\u0435\u0442 \U00010428\U00010429"},
                 {"accents of their own", "cafe\u0301s", "cafe\u0301s"}}) {
            const InRow row(this, what);
            QCOMPARE(Texts(QString::fromUtf8(text)).join(u' '), QString::fromUtf8(words));
        }
        QCOMPARE(Texts(QString(LongestWord, u'a')).size(), 1);
        QCOMPARE(Texts(QString(LongestWord + 1, u'a')).size(), 0);
        QCOMPARE(Texts(u"a,bc"_s.repeated(100'000)).size(), 0);
    }

    void dictionariesOfTwoLanguages()
    {
        Speller speller(PersonalFile());
        QVERIFY(speller.IsKnown(u"wrogn"_s)); // nothing is loaded
        QVERIFY(speller.Load(Installed(u"en_US"_s)));
        QVERIFY(speller.IsKnown(u"house"_s) && speller.IsKnown(u"House"_s) && speller.IsKnown(u"don't"_s));
        QVERIFY(!speller.IsKnown(u"wrogn"_s) && !speller.IsKnown(u"Haus"_s) && !speller.IsKnown(u"london"_s));
        QVERIFY(speller.IsKnown(u"\u043f\u0440\u0438\u0432\u0435\u0442"_s)); // letters of no chosen language
        QVERIFY(speller.Load(Installed(u"de_DE"_s)));
        QVERIFY(speller.IsKnown(u"Haus"_s) && speller.IsKnown(u"Übung"_s) && !speller.IsKnown(u"Rechtschreibprfung"_s));
        QVERIFY(speller.Suggest(u"wrogn"_s).contains(u"wrong"_s));
        QVERIFY(speller.Suggest(u"Terminkalnder"_s).contains(u"Terminkalender"_s));
        QVERIFY(speller.Suggest(u"tehn"_s).size() == 5);
        speller.Unload();
        QVERIFY(speller.IsKnown(u"wrogn"_s));
    }

    void encodingsOfDictionaries()
    {
        for (const auto& [what, encoding, word, bytes] :
             Rows<QByteArray, QString, QByteArray>{{"Cyrillic", "KOI8-R", u"мир"_s, "\xcd\xc9\xd2"},
                                                   {"Western", "ISO8859-1", u"café"_s, "caf\xe9"},
                                                   {"Eastern", "ISO8859-2", u"łan"_s,
                                                    "\xb3"
                                                    "an"},
                                                   {"of Windows", "microsoft-cp1251", u"мир"_s, "\xec\xe8\xf0"},
                                                   {"Unicode, with its mark", "UTF-8", u"łan"_s, u"łan"_s.toUtf8()}}) {
            const InRow row(this, what);
            Speller speller(PersonalFile());
            const QByteArray mark = encoding == "UTF-8" ? "\xef\xbb\xbf" : "";
            QVERIFY(speller.Load(Written(u"xx"_s, "SET " + encoding + "\nTRY " + bytes, mark + "1\n" + bytes + "\n")));
            QVERIFY(!speller.IsKnown(word + u'\u0301')); // which most encodings lack
            QVERIFY(speller.IsKnown(word));
            QVERIFY(!speller.IsKnown(word + word.front()));
            QCOMPARE(speller.Suggest(word + word.front()), QStringList(word));
        }
    }

    void brokenDictionariesAreLeftOut()
    {
        for (const auto& [what, rules, words] :
             Rows<QByteArray, QByteArray>{{"empty words", "SET UTF-8\n", ""},
                                          {"empty rules", "", "1\nword\n"},
                                          {"no number", "SET UTF-8\n", "word\n"},
                                          {"a number beyond the file", "SET UTF-8\n", "200000000\nword\n"},
                                          {"unknown encoding", "SET nothing\n", "1\nword\n"},
                                          {"no letters", "SET UTF-8\n", QByteArray("9\n").append(5000, '\0')}}) {
            const InRow row(this, what);
            const DictionaryFiles files = Written(u"xx"_s, rules, words);
            QVERIFY(!Dictionary::IsUsable(files) && !Dictionary::Load(files));
        }
        const DictionaryFiles huge = Written(u"xx"_s, "SET UTF-8\n", "1\nword\n");
        QVERIFY(Dictionary::IsUsable(huge));
        QVERIFY(QFile::resize(huge.path + u".dic"_s, 25 << 20));
        QVERIFY(!Dictionary::IsUsable(huge));
        // Cut or changed anywhere, hunspell may make little of it, but the program goes on.
        const DictionaryFiles english = Installed(u"en_US"_s);
        const QByteArray rules = Content(english.path + u".aff"_s),
                         words = Content(english.path + u".dic"_s).left(20'000);
        for (int cut = 1; cut < rules.size(); cut += 97) {
            QByteArray changed = rules;
            changed[cut] = char(cut * 31);
            for (const QByteArray& one : {rules.left(cut), changed}) {
                const auto dictionary = Dictionary::Load(Written(u"xx"_s, one, words.left(words.size() - cut)));
                if (dictionary && !dictionary->Knows(u"wrogn"_s)) (void)dictionary->Suggest(u"abandn"_s);
            }
        }
    }

    void dictionariesOfTheDesktop()
    {
        for (const char* name : {"de_AT", "de_DE", "en_GB-large", "eo"})
            Written(QString::fromLatin1(name), "SET UTF-8\n", "1\nword\n");
        SetContent(m_folders->Path(u"hyph_de.dic"_s), "UTF-8\n");
        SetDictionaryFoldersForTests({m_folders->Path({})});
        const auto installed = InstalledDictionaries();
        QStringList words;
        for (const DictionaryFiles& one : installed)
            words += DictionaryInWords(one.name);
        QCOMPARE(words.join(u"; "_s),
                 u"German (Austria); German (Germany); English (United Kingdom, large); Esperanto");
        QCOMPARE(DictionaryFor(QLocale(u"de_DE"_s), installed), u"de_DE");
        QCOMPARE(DictionaryFor(QLocale(u"de_CH"_s), installed), u"de_AT");
        QCOMPARE(DictionaryFor(QLocale(u"fr_FR"_s), installed), u"");
        QCOMPARE(DictionaryFor(QLocale::c(), installed), u"");
        SetDictionaryFoldersForTests({});
        qputenv("DICPATH", QFile::encodeName(m_folders->Path(u"none"_s) + u':' + m_folders->Path({})));
        QCOMPARE(Installed(u"de_DE"_s).path, QDir::cleanPath(m_folders->Path(u"de_DE"_s)));
        qunsetenv("DICPATH");
    }

    void personalWordsAreShared()
    {
        Speller one(PersonalFile()), other(PersonalFile());
        for (Speller* speller : {&one, &other})
            QVERIFY(speller->Load(Installed(u"en_US"_s)));
        QVERIFY(one.Personal().Add(u"orrelin"_s) && other.Personal().Add(u"Łódka"_s));
        QVERIFY(one.Personal().Add(u"orrelin"_s));
        QCOMPARE(Content(PersonalFile()), u"Łódka\norrelin\n"_s.toUtf8());
        QVERIFY(other.IsKnown(u"Orrelin"_s) && other.IsKnown(u"Łódka"_s) && !other.IsKnown(u"łódka"_s));
        one.Personal().Refresh();
        QVERIFY(one.IsKnown(u"Łódka"_s));
        one.Ignore(u"wrogn"_s);
        QVERIFY(one.IsKnown(u"wrogn"_s) && !other.IsKnown(u"wrogn"_s));
        {
            const FullDisk disk(4);
            QVERIFY(!other.Personal().Add(u"more"_s) && !other.Personal().Remove(u"orrelin"_s));
        }
        QCOMPARE(Content(PersonalFile()), u"Łódka\norrelin\n"_s.toUtf8());
        QVERIFY(one.Personal().Remove(u"orrelin"_s) && !one.IsKnown(u"orrelin"_s));
        QCOMPARE(Content(PersonalFile()), u"Łódka\n"_s.toUtf8());
    }
};

ORRELIN_TEST(SpellerTest)

#include "spellertest.moc"
