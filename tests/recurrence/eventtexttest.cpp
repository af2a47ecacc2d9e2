#include "recurrence/eventtext.h"

#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/selectionformat.h"
#include "testmain.h"

#include <QBuffer>
#include <QImage>
#include <QTest>
#include <QTextBlock>

// Inserting an event's text into a note and removing it changes nothing else of the note.
class EventTextTest : public QObject
{
    Q_OBJECT

    static QByteArray Picture()
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        QBuffer file;
        image.save(&file, "png");
        return "{\\pict\\pngblip\\picw2\\pich2\\picwgoal300\\pichgoal300 " + file.data().toHex() + '}';
    }

    static QByteArray Rtf(const QByteArray& body)
    {
        return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil Symbol Sans;}}{\\colortbl "
               ";\\red255\\green0\\blue0;\\red0\\green0\\blue255;}\\f0\\fs16 " +
               body + '}';
    }

    static QTextCharFormat PlainFormat() { return FormatOf(QFont(u"Plain Face"_s, 9)); }

    static QByteArray Named(const QByteArray& name)
    {
        const QMap<QByteArray, QByteArray> texts = {
            {"word", Rtf("Rent\\par")},
            {"no mark at the end", Rtf("Rent")},
            {"bold and centred", Rtf("\\pard\\qc\\b\\cf1 Dentist\\b0  at {\\i ten}\\par")},
            {"paragraphs", Rtf("\\pard\\qr first\\par\\pard\\li360\\fi-200\\f1\\fs40 second\\par\\pard\\qj\\par")},
            {"list", Rtf("{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'B7}}\\fi-200\\li200 milk\\par"
                         "{\\pntext\\f1\\'B7\\tab}bread\\par")},
            {"picture", Rtf("\\ul left " + Picture() + " right\\ulnone\\par")},
            {"a vector drawing", Rtf("plan {\\pict\\wmetafile8\\picw1000\\pich1000\\picwgoal600\\pichgoal600 "
                                     "0100090000032100000000000500000000001c0000000000} of it\\par")},
            {"a link", Rtf("{\\field{\\*\\fldinst{HYPERLINK \"http://example.org/\"}}{\\fldrslt{there}}} now\\par")},
            {"no rich text", "milk, bread\nand caf\xc3\xa9"},
            {"nothing", ""},
            {"one blank", " "},
        };
        return texts.value(name);
    }

    static void Read(const QByteArray& rtf, QTextDocument& document)
    {
        ReadRtf(rtf, document);
        if (LooksLikeRtf(rtf)) return;
        QTextCursor all(&document);
        all.select(QTextCursor::Document);
        all.setCharFormat(PlainFormat());
    }

    // The visible properties of a document, one text for each paragraph: its formats, and those of every character.
    static QStringList Described(const QByteArray& rtf)
    {
        QTextDocument document;
        Read(rtf, document);
        if (!LooksLikeRtf(rtf))
            ReadRtf(WriteRtf(document), document); // the form of a plain text after its first change
        QStringList blocks;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            QString text;
            QDebug out(&text);
            out << block.blockFormat().properties() << block.text();
            for (auto run = block.begin(); !run.atEnd(); ++run)
                out << run.fragment().text() << run.fragment().charFormat().properties();
            blocks += text;
        }
        return blocks;
    }

    static void CheckGoesBelow(const QByteArray& note, const QByteArray& event)
    {
        EventText text(event, PlainFormat());
        const QByteArray once = text.AppendedTo(note);
        QCOMPARE(Described(once), Described(note) + Described(event));
        QCOMPARE(Described(text.AppendedTo(once)), Described(once) + Described(event));
        QVERIFY(!note.contains("wmetafile") || once.contains("0100090000032100000000000500000000001c0000000000"));
        const auto left = text.TakenOutOf(once);
        QVERIFY(left);
        // The event's line stays, with an empty one below it.
        const QStringList lines = Described(*left), before = Described(note);
        QTextDocument added;
        Read(event, added);
        QCOMPARE(lines.size(), before.size() + (added.lastBlock().text().isEmpty() ? 2 : 1));
        const bool hadItBefore = text.TakenOutOf(note).has_value();
        if (!hadItBefore) QCOMPARE(lines.first(before.size()), before);
    }

private Q_SLOTS:
    void GoesBelowWhatTheNoteHeld()
    {
        for (const char* held : {"word", "no mark at the end", "bold and centred", "paragraphs", "list", "picture",
                                 "a vector drawing", "a link", "no rich text", "nothing", "one blank"})
            for (const char* event : {"word", "bold and centred", "paragraphs", "list", "picture", "a link"})
                CheckGoesBelow(Named(held), Named(event));
    }

    // A null rest means that the note is unchanged.
    void IsFoundAsAWordOfOneParagraph()
    {
        const QByteArray kept, lines = Rtf("Rent\\par\\b and\\b0  gas\\par light\\par\\par");
        for (const auto& [what, event, note, rest] : Rows<QByteArray, QByteArray, QByteArray>{
                 {"alone", Rtf("Rent"), Rtf("Rent"), Rtf("")},
                 {"below", Rtf("Rent"), Rtf("old\\par Rent\\par"), Rtf("old\\par\\par")},
                 {"formatted otherwise", Rtf("Rent"), Rtf("\\b Re\\b0 nt now"), Rtf("\\b0  now")},
                 {"first of two", Rtf("Rent"), Rtf("a Rent\\par Rent"), Rtf("a \\par Rent")},
                 {"other case", Rtf("Rent"), Rtf("rent RENT"), kept},
                 {"part of a word", Rtf("Rent"), Rtf("Rents Parent"), kept},
                 {"beside stops", Rtf("Rent"), Rtf("Rents (Rent), 1Rent"), Rtf("Rents (), 1Rent")},
                 {"blank that does not break in the note", Rtf("at ten"), Rtf("meet at\\~ten"), Rtf("meet ")},
                 {"and in the event", Rtf("at\\~ten"), Rtf("meet at ten"), Rtf("meet ")},
                 {"across paragraphs", Rtf("Rent and light"), Rtf("Rent\\par and light"), kept},
                 {"event of lines", lines, Rtf("my Rent\\par Rent\\par\\i and gas\\par light\\i0 , now"),
                  Rtf("my Rent\\par , now")},
                 {"its lines begin behind other words", lines,
                  Rtf("\\qr pay Rent\\par\\qc and\\~gas\\par light\\par\\ql x"), Rtf("\\qr pay \\par\\ql x")},
                 {"of its lines first goes on", lines, Rtf("Rent 1\\par and gas\\par light"), kept},
                 {"of its lines first is part of a word", lines, Rtf("nRent\\par and gas\\par light"), kept},
                 {"of its lines between goes on", lines, Rtf("Rent\\par and gas 2\\par light"), kept},
                 {"of its lines last is part of a word", lines, Rtf("Rent\\par and gas\\par lights"), kept},
                 {"of its lines a line between", lines, Rtf("Rent\\par\\par and gas\\par light"), kept},
                 {"of its lines other case", lines, Rtf("Rent\\par And gas\\par light"), kept},
                 {"of its lines last is missing", lines, Rtf("light\\par Rent\\par and gas"), kept},
                 {"lines with their picture", Rtf("cake" + Picture() + "\\par tea"),
                  Rtf("a\\par cake" + Picture() + "\\par tea"), Rtf("a\\par\\par")},
                 {"lines without it", Rtf("cake" + Picture() + "\\par tea"), Rtf("a\\par cake\\par tea"),
                  Rtf("a\\par\\par")},
                 {"a picture and an empty line", Rtf(Picture() + "\\par\\par"), Rtf(Picture()), kept},
                 {"line break", Rtf("Rent\\line light"), Rtf("x\\par Rent\\line light"), Rtf("x\\par\\par")},
                 {"with its picture", Rtf("cake " + Picture()), Rtf("a cake " + Picture() + " b"), Rtf("a  b")},
                 {"its picture is gone", Rtf("cake" + Picture()), Rtf("a cake"), Rtf("a ")},
                 {"a picture alone", Rtf(Picture()), Rtf(Picture()), kept},
                 {"plain note", Rtf("Rent"), QByteArray("pay Rent"), QByteArray("pay ")}}) {
            const InRow row(this, what);
            const auto left = EventText(event, PlainFormat()).TakenOutOf(note);
            QCOMPARE(left.has_value(), !rest.isNull());
            if (left) QCOMPARE(Described(*left), Described(rest));
        }
    }

    void APictureAloneIsNoText()
    {
        QVERIFY(EventText(Rtf(Picture()), PlainFormat()).IsEmpty());
        QVERIFY(!EventText(Rtf("x"), PlainFormat()).IsEmpty());
    }
};

ORRELIN_TEST(EventTextTest)
#include "eventtexttest.moc"
