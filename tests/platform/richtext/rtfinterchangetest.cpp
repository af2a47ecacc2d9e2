// Notes between this program and others: what they write in their own manner is read, and what is written here is read
// by another reader of rich text.
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "testmain.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryFile>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>

using namespace Qt::StringLiterals;
using SetFormat = std::function<void(QTextCharFormat&)>;
Q_DECLARE_METATYPE(SetFormat)

namespace {

QString OtherReader(const char* kind, const QTextDocument& document)
{
    QTemporaryFile file;
    if (!file.open()) return {};
    file.write(WriteRtf(document));
    file.close();
    QProcess reader;
    reader.start(u"unrtf"_s, {QString::fromLatin1(kind), file.fileName()});
    return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()) : reader.errorString();
}

// Without the opening lines of that reader, and with one blank for many.
QString TextOfOtherReader(const QTextDocument& document)
{
    return OtherReader("--text", document).section(u"-----------------\n"_s, 1).simplified();
}

QTextCharFormat Plain()
{
    QTextCharFormat format;
    format.setFontFamilies({u"Arial"_s});
    format.setFontPointSize(12);
    return format;
}

} // namespace

class RtfInterchangeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TextAsAnotherReaderReadsIt()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(u"Tea {5} \\ 7;\tnow\nsecond"_s, Plain());
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        centred.setTabPositions({QTextOption::Tab(40, QTextOption::RightTab)});
        cursor.insertBlock(centred, Plain());
        cursor.insertText(u"-1 third\u2028line"_s);
        QCOMPARE(TextOfOtherReader(document), u"Tea {5} \\ 7; now second -1 third line"_s);
    }

    void FormatAsAnotherReaderReadsIt_data()
    {
        QTest::addColumn<SetFormat>("set");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("html");
        using Format = QTextCharFormat&;
        const auto row = [](const char* name, const QString& html, SetFormat set, const QString& text = u"x"_s) {
            QTest::newRow(name) << set << text << html;
        };
        row("bold", u"<b>x</b>"_s, [](Format f) { f.setFontWeight(QFont::Bold); });
        row("italic", u"<i>x</i>"_s, [](Format f) { f.setFontItalic(true); });
        row("underline", u"<u>x</u>"_s, [](Format f) { f.setFontUnderline(true); });
        row("struck through", u"<s>x</s>"_s, [](Format f) { f.setFontStrikeOut(true); });
        row("raised", u"<sup>x</sup>"_s, [](Format f) { f.setVerticalAlignment(QTextCharFormat::AlignSuperScript); });
        row("lowered", u"<sub>x</sub>"_s, [](Format f) { f.setVerticalAlignment(QTextCharFormat::AlignSubScript); });
        row("colour", u"<font color=\"#123456\">x</font>"_s, [](Format f) { f.setForeground(QColor(18, 52, 86)); });
        row("size", u"<span style=\"font-size:20pt\">x</span>"_s, [](Format f) { f.setFontPointSize(20); });
        row("family", u"<font face=\"Courier New\">x"_s, [](Format f) { f.setFontFamilies({u"Courier New"_s}); });
        row(
            "signs", u"&alpha;&Sigma;"_s, [](Format f) { f.setFontFamilies({u"Symbol"_s}); }, u"αΣ"_s);
        row(
            "letters of the west", u"caf&eacute; &euro;"_s, [](Format) {}, u"café €"_s);
        row(
            "other letters", u"&#1078;"_s, [](Format) {}, u"ж"_s);
    }

    void FormatAsAnotherReaderReadsIt()
    {
        QFETCH(SetFormat, set);
        QFETCH(QString, text);
        QFETCH(QString, html);
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(u"before "_s, Plain());
        QTextCharFormat format = Plain();
        set(format);
        cursor.insertText(text, format);
        cursor.insertText(u" after"_s, Plain());
        const QString read = OtherReader("--html", document);
        QVERIFY2(read.contains(html), qPrintable(read));
    }

    void WhatOthersWrite_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("text"); // "|" ends a paragraph
        const auto row = [](const char* file, const QString& text) {
            QTest::newRow(file) << QString::fromLatin1(file) << text;
        };
        row("editcontrol.rtf", u"Milk and bread|•\ttwo\tthree|•\tfour|five\u2028sixseven"_s);
        row("wordprocessor.rtf", u"příliš žluť|Łybox|last"_s);
        row("foreign.rtf", u"One|two–\u2028three"_s);
        row("tables.rtf", u"a\tb|x\ty|c\td|after"_s);
        row("fields.rtf", u"See here anda|b, page 7 n m."_s);
        row("plain.rtf", u"No rich text: grüße {a} \\b|next line|"_s);
    }

    void WhatOthersWrite()
    {
        QFETCH(QString, file);
        QFile corpus(QStringLiteral(RTF_CORPUS "/") + file);
        QVERIFY(corpus.open(QIODevice::ReadOnly));
        QTextDocument document;
        ReadRtf(corpus.readAll(), document);
        QTEST(document.toRawText().replace(QChar::ParagraphSeparator, u'|'), "text");
    }
};

ORRELIN_TEST(RtfInterchangeTest)
#include "rtfinterchangetest.moc"
