#include "exchange/writers.h"

#include "errorof.h"
#include "exchange/notewalk.h"
#include "exchange/readers.h"
#include "platform/richtext/rtfwriter.h"
#include "testmain.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <QRegularExpression>

// What is exported is read back as the same texts, in the same styles where the format has them.
class WritersTest : public QObject
{
    Q_OBJECT

    // What some format reads as its own, and what readers drop. Qt's reader of Markdown drops the last three.
    static const QStringList& Pieces()
    {
        static const QStringList pieces =
            u"*§**§_§`§```§~~§\\§[§](a)§!§<b>§<!--§<br/>§&§&amp;§# §\n- §\n+ §\n---§\n===§\n> §\n1. §\n12) §|§:-§.§"
            "(x)§%1§7§a§word§ß §€§–§🙂§שלום§http://a_b.example § §  §    "
            "§\n§\n\n§\u00A0§\u2028§"
            "\n1999-07 Memo 3\n§\n1999-07-04 Sunday\n§\n\\1999-07-04\n---\n§\u2003§\t§\v"_s.split(u'§');
        return pieces;
    }

    static QByteArray RandomNote(QRandomGenerator& random, qsizetype pieces)
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        for (auto i = random.bounded(12); i >= 0; --i) {
            QTextCharFormat format;
            format.setFontWeight(random.bounded(3) == 0 ? QFont::Bold : QFont::Normal);
            format.setFontItalic(random.bounded(3) == 0);
            format.setFontStrikeOut(random.bounded(5) == 0);
            format.setFontUnderline(random.bounded(5) == 0);
            cursor.insertText(Pieces()[random.bounded(pieces)], format);
        }
        return WriteRtf(document);
    }

    static Extract RandomExtract(qsizetype pieces = Pieces().size())
    {
        QRandomGenerator random(7);
        Extract extract{u"a *b* <c>"_s, {}, {}, {}};
        for (int i = 0; i < 1500; ++i)
            extract.notes.push_back({{1999 + i / 336, i / 28 % 12 + 1, i % 28 + 1}, 0, RandomNote(random, pieces)});
        return extract;
    }

    // Paragraphs, pictures, forms and addresses.
    static Extract RichExtract()
    {
        const QByteArray rtf =
            "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl;\\red0\\green0\\blue0;\\red128\\green0"
            "\\blue0;\\red255\\green255\\blue0;}\\pard\\li360\\fi-360\\f0\\fs16\\cf1\\bullet\\tab milk, bread\\par"
            "\\pard\\qr\\cf2\\fs32  red\\cf1\\fs16\\highlight3  ground\\highlight0\\f1  code\\f0\\par\\par"
            "\\pard{\\field{\\*\\fldinst HYPERLINK \"https://a.example/?x=1&y=2\"}{\\fldrslt there}}"
            "{\\field{\\*\\fldinst HYPERLINK \"javascript:alert(1)\"}{\\fldrslt nowhere}}\\par"
            "\\pard{\\field{\\*\\fldinst HYPERLINK \"http://b.example/c d(e)&lt\"}{\\fldrslt\\b x*y}}\\b0\\par"
            "\\pard\\rtlpar\\u1513?\\par\\pard\\ltrpar <script>alert(1)</script>\\line  " +
            Picture() + Picture() + "\\par}";
        return {u"a *b* <c>"_s, {{{1999, 7, 4}, 0, rtf}, {{1999, 7, 0}, 3, "café\n"}, {{2001, 2, 29}, 0, ""}}, {}, {}};
    }

    static QByteArray PictureFile()
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        QBuffer file;
        image.save(&file, "png");
        return file.data();
    }

    static QByteArray Picture()
    {
        return "{\\pict\\pngblip\\picw2\\pich2\\picwgoal480\\pichgoal240 " + PictureFile().toHex() + '}';
    }

    static QStringList NotesOf(const QByteArray& markdown)
    {
        static const QRegularExpression heading(u"\n\n## .*\n\n"_s);
        return QString::fromUtf8(markdown).chopped(1).split(heading).sliced(1);
    }

    // The characters but blanks, each behind its styles.
    static QString Styled(const QTextDocument& document, const QString& tags)
    {
        QString styled;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            for (auto i = block.begin(); !i.atEnd(); ++i) {
                QString styles;
                for (const NoteStyle& style : NoteStyles)
                    if (tags.contains(style.tag) && style.isSet(i.fragment().charFormat(), {})) styles += style.tag;
                for (const QChar one : QString(i.fragment().text()))
                    if (!one.isSpace()) styled += styles + one;
            }
        return styled;
    }

private Q_SLOTS:
    // Into a new planner an import brings what an export took out of another.
    void textsComeBack()
    {
        const Extract extract = RandomExtract();
        const auto add = [](const QByteArray&) { return QString(); };
        const ImportedFile plain = ReadPlainText(WritePlainText(extract, add), {});
        const ImportedFile markdown = ReadMarkdown(WriteMarkdown(extract, add), {});
        QCOMPARE(plain.leftOut + markdown.leftOut, QStringList());
        size_t i = 0;
        QTextDocument read;
        ForEachNote(extract, [&](const ExtractedNote& written, const QTextDocument& note) {
            if (note.toPlainText().trimmed().isEmpty() || QTest::currentTestFailed()) return;
            for (const ImportedFile* file : {&plain, &markdown}) {
                QVERIFY(i < file->entries.size());
                const ExtractedNote& entry = file->entries[i].notes.at(0);
                QCOMPARE(HeadingOf(entry), HeadingOf(written));
                ReadRtf(entry.rtf, read);
                QCOMPARE(read.toPlainText(), note.toPlainText());
            }
            QCOMPARE(Styled(read, u"bis"_s), Styled(note, u"bis"_s));
            ++i;
        });
        QCOMPARE(plain.entries.size(), i);
        QCOMPARE(markdown.entries.size(), i);
    }

    void filesOfOthersAreRead()
    {
        const auto textsOf = [](const ImportedFile& file) {
            QStringList texts;
            QTextDocument note;
            for (const ImportedEntry& entry : file.entries) {
                ReadRtf(entry.notes.at(0).rtf, note);
                texts += HeadingOf(entry.notes[0]) + u": "_s + note.toPlainText().replace(u'\n', u'|');
            }
            return texts + file.leftOut + QStringList{file.refusal};
        };
        const QString none = u"No line of it is a date like 1999-07-04 with a text below it."_s;
        const QByteArray text = "diary\r\nof Ann\r\n1999-07-05 milk\rbread\r\n1999-13-01\nlost\n1999-07-04\ncaf\xe9\n"
                                "1999-07 Memo 6\n1999-07 Memo 5\n---\n-\n\\1999-07-05\n\n\n";
        QCOMPARE(textsOf(ReadPlainText(text, {})),
                 QStringList({u"1999-07 Memo 5: -|1999-07-05|"_s, u"1999-07-04 Sunday: café"_s,
                              u"1999-07-05 Monday: milk|bread"_s, u"Line 1: no date stands before this text: diary"_s,
                              u"Line 5: no day of the calendar: 1999-13-01"_s,
                              u"Line 9: no day of the calendar: 1999-07 Memo 6"_s, QString()}));
        const QByteArray markdown = "# Diary\n\n### 1999-07-04 fair\nsun, 2 * 3 &eacute; **hot**\n\n- beach\n\n";
        QCOMPARE(textsOf(ReadMarkdown("\xef\xbb\xbf" + markdown, {})),
                 QStringList({u"1999-07-04 Sunday: fair|sun, 2 * 3 &eacute; hot||- beach"_s, QString()}));
        for (const QByteArray& nothing : {""_ba, "\0"_ba, "# 1999-07-04\n \n"_ba, text.first(20)})
            QCOMPARE(ReadMarkdown(nothing, {}).refusal, none);
    }

    void otherReadersSeeTheStyles()
    {
        const Extract extract = RandomExtract(Pieces().size() - 3);
        const QStringList markdown = NotesOf(WriteMarkdown(extract, {}));
        const QStringList pages = QString::fromUtf8(WriteWebPage(extract, {})).split(u"</h3><div>\n"_s).sliced(1);
        QTextDocument read;
        QStringList texts, styled;
        ForEachNote(extract, [&, i = 0](const ExtractedNote& day, const QTextDocument& note) mutable {
            if (QTest::currentTestFailed()) return;
            const auto isSame = [&](const QString& tags) {
                const QString text = read.toPlainText().remove(u'\u200A');
                return text == note.toPlainText() && Styled(read, tags) == Styled(note, tags);
            };
            // Behind an entity Qt forgets the style.
            read.setMarkdown(QString(markdown[i]).replace(u"&nbsp;"_s, u"\u00A0"_s));
            QVERIFY2(isSame(u"bis"_s), qPrintable(markdown[i]));
            // Unlike a browser, Qt begins a line behind a last break.
            const QString page = pages[i].section(u"</div>"_s, 0, 0).replace(u"<br></p>\n"_s, u"\u200A</p>\n"_s);
            read.setHtml(u"<style>p { white-space: pre-wrap }</style>"_s + QString(page).remove(u'\n'));
            QVERIFY2(isSame(u"bisu"_s), qPrintable(page));
            const QString heading = HeadingOf(day);
            texts << heading << note.toPlainText();
            styled << QString(heading).remove(u' ').replace(QRegularExpression(u"(.)"_s), u"b\\1"_s)
                   << Styled(note, u"bisu"_s);
            ++i;
        });
        ReadRtf(WriteRichText(extract, {}), read);
        QCOMPARE(read.toPlainText().split(u'\n'), texts.join(u'\n').split(u'\n'));
        QVERIFY(Styled(read, u"bisu"_s) == styled.join(QString()));
    }

    void aWebPageIsWholeAndHarmless()
    {
        const QByteArray page = WriteWebPage(RichExtract(), {});
        for (const char* part :
             {"<title>a *b* &lt;c&gt;</title>", "<h2>July 1999</h2>", "<h2>February 2001</h2>",
              "<h3><time datetime=\"1999-07-04\">Sunday, July 4</time></h3>", "<h3>Memo 3</h3>", "<h3>February 29</h3>",
              "<p style=\"margin-left:min(2.25em,40%);text-indent:-2.25em;tab-size:2.25em;\">•\tmilk, bread</p>",
              "<p style=\"text-align:right;\"><span class=\"c1\"><span style=\"font-size:2em;\"> red</span></span>",
              "<span class=\"c2\"> ground</span><span style=\"font-family:'Courier New',var(--text);\"> code</span>",
              ".c1{color:#800000}", ".c1{color:#ff8585}", ".c2{color:#000000;background:#ffff00}", "<p><br></p>",
              "<p><a href=\"https://a.example/?x=1&amp;y=2\">there</a>nowhere</p>", "<p dir=\"rtl\">ש</p>",
              "<p>&lt;script&gt;alert(1)&lt;/script&gt;<br> <img alt=\"\" style=\"width:3em;aspect-ratio:32/16\" ",
              "<p>café</p>\n<p><br></p>"})
            QVERIFY2(page.contains(part), part);
        QCOMPARE(page.count("src=\"data:image/png;base64," + PictureFile().toBase64() + "\">"), 2);
        QCOMPARE(page.count("<section>"), page.count("</section>"));
        for (const char* part : {"<script", "javascript", "nowhere</a>", ".c3"})
            QVERIFY2(!page.contains(part), part);
    }

    void picturesAndParagraphsAreKept()
    {
        QList<QByteArray> files;
        const QByteArray markdown = WriteMarkdown(RichExtract(), [&files](const QByteArray& file) {
            files += file;
            return files.size() == 1 ? u"a b/1.png"_s : QString();
        });
        QCOMPARE(files, QList<QByteArray>(2, PictureFile()));
        QVERIFY2(markdown.contains("\n\\<script>alert(1)\\</script>\\\n&nbsp;![](a%20b/1.png)\n\n"), markdown);
        QVERIFY2(markdown.contains("\n[there](https://a.example/?x=1\\&y=2)nowhere\\\n"), markdown);
        QTextDocument read;
        ReadRtf(ReadMarkdown(markdown, {}).entries.at(1).notes.at(0).rtf, read);
        QStringList links;
        for (QTextBlock block = read.begin(); block.isValid(); block = block.next())
            for (auto i = block.begin(); !i.atEnd(); ++i)
                if (const QString target = i.fragment().charFormat().anchorHref(); !target.isEmpty())
                    links += i.fragment().text() + u'>' + target;
        QCOMPARE(links, QStringList({u"there>https://a.example/?x=1&y=2"_s, u"x*y>http://b.example/c d(e)&lt"_s}));
        QVERIFY(!WritePlainText(RichExtract(), {}).contains("\xef\xbf\xbc"));
        const QByteArray rtf = WriteRichText(RichExtract(), {});
        QCOMPARE(rtf.count("\\pngblip"), 2);
        QVERIFY2(rtf.contains("\\pard\\fi-360\\li360\\b0\\cf1\\u8226?\\tab milk"), rtf);
    }

    void everyWriterCanBeEnded()
    {
        for (const auto write : {WriteWebPage, WriteMarkdown, WritePlainText, WriteRichText}) {
            QList<double> reached;
            longwork::SetWatch([&reached](double done) { return (reached << done).size() < 2; });
            QVERIFY(ErrorOf([&] { write(RichExtract(), [](const QByteArray&) { return u"a"_s; }); }) != 0);
            longwork::SetWatch(nullptr);
            QCOMPARE(reached, QList({1 / 3.0, 2 / 3.0}));
        }
    }
};

ORRELIN_TEST(WritersTest)

#include "writerstest.moc"
