// The content of the rich text box as bytes and in files.
#include "errorof.h"
#include "files.h"
#include "notes.h"
#include "testmain.h"

#include <QTemporaryDir>

namespace {
const QByteArray
    g_rtf("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 Choir \\b 19:00\\b0\\par\\qc  bring   notes\\par}");
} // namespace

class RichTextBoxFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void untouchedContentIsGivenBackByteByByte()
    {
        const std::tuple<const char*, QByteArray, QString> rows[] = {
            {"rich", g_rtf, u"Choir 19:00\n bring   notes"_s},
            {"odd rich", "{\\rtf1 \\unknown\\b}}}} x", u""_s},
            {"plain", "Dentist\r\n10:30 \xc3\xa4", u"Dentist\n10:30 \u00e4"_s},
            {"blank", " ", u" "_s},
            {"nothing", "", u""_s},
        };
        for (const auto& [name, content, text] : rows) {
            const InRow inRow(this, name);
            RichTextBox box;
            box.SetTextRTF(content);
            if (!text.isEmpty()) QCOMPARE(box.Text(), text);
            Select(box, 0, 3);
            QVERIFY(!box.Modified());
            QCOMPARE(box.TextRTF(), content);

            box.moveCursor(QTextCursor::End);
            QTest::keyClicks(&box, u"!"_s);
            QVERIFY(box.Modified());
            QVERIFY(box.TextRTF() != content);
            QVERIFY(box.TextRTF().startsWith("{\\rtf"));
            box.undo();
            QVERIFY(!box.Modified());
            QCOMPARE(box.TextRTF(), content);
        }
    }

    // After the save clears the flag, the box must return the saved text and not the bytes read before.
    void changesOutliveTheClearedFlag()
    {
        RichTextBox box;
        box.SetTextRTF(g_rtf);
        QTest::keyClicks(&box, u"new "_s);
        const QByteArray saved = box.TextRTF();
        box.SetModified(false);
        QCOMPARE(box.TextRTF(), saved);

        RichTextBox other;
        other.SetTextRTF(saved);
        QCOMPARE(other.Text(), u"new Choir 19:00\n bring   notes"_s);
        box.undo();
        QVERIFY(box.Modified());
        other.SetTextRTF(box.TextRTF());
        QCOMPARE(other.Text(), u"Choir 19:00\n bring   notes"_s);

        box.MarkSaved("saved bytes");
        QVERIFY(box.Holds("saved bytes"));
        QTest::keyClicks(&box, u"!"_s);
        QVERIFY(!box.Holds("saved bytes"));
        box.undo();
        QCOMPARE(box.TextRTF(), QByteArray("saved bytes"));
    }

    void filesAreReadAndWritten()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(u"dayview.rtf"_s);
        RichTextBox box;
        box.SetTextRTF(g_rtf);
        box.SaveFile(path);
        QCOMPARE(Content(path), g_rtf);

        RichTextBox other;
        other.SetText(u"before"_s);
        QTest::keyClicks(&other, u"typed"_s);
        other.LoadFile(path);
        QVERIFY(!other.Modified());
        QCOMPARE(other.Text(), box.Text());
        QCOMPARE(other.TextRTF(), g_rtf);
        QTest::keyClicks(&other, u"New "_s);
        other.SaveFile(path);
        box.LoadFile(path);
        QCOMPARE(box.Text(), u"New Choir 19:00\n bring   notes"_s);
    }

    void fileErrors()
    {
        QTemporaryDir directory;
        RichTextBox box;
        box.SetText(u"kept"_s);
        QCOMPARE(ErrorOf([&] { box.LoadFile(directory.filePath(u"none.rtf"_s)); }), errors::FileNotFound);
        QCOMPARE(ErrorOf([&] { box.LoadFile(directory.path()); }), errors::PathFileAccess);
        QCOMPARE(ErrorOf([&] { box.SaveFile(directory.path()); }), errors::PathFileAccess);
        QCOMPARE(ErrorOf([&] { box.SaveFile(directory.filePath(u"no/where.rtf"_s)); }), errors::PathFileAccess);
        QCOMPARE(box.Text(), u"kept"_s);
    }

    void fullDiskLeavesTheOldFile()
    {
        for (const int words : {1500, 20000}) { // the first fails in the buffer, the second is written in part
            const InRow inRow(this, QString::number(words));
            QTemporaryDir directory;
            const QString path = directory.filePath(u"dayview.rtf"_s);
            RichTextBox box;
            box.SetTextRTF(g_rtf);
            box.SaveFile(path);
            box.SetText(u"long "_s.repeated(words));
            const FullDisk full(4096);
            QCOMPARE(ErrorOf([&] { box.SaveFile(path); }), errors::PathFileAccess);
            QCOMPARE(Content(path), g_rtf);
        }
    }
};

ORRELIN_TEST(RichTextBoxFilesTest)
#include "richtextboxfilestest.moc"
