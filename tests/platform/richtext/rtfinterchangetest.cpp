// Notes between this program and others: what they write in their own manner is read, and what is written here is read
// by another reader of rich text.
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "testmain.h"

#include <QFile>
#include <QTemporaryFile>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>

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

    void FormatAsAnotherReaderReadsIt()
    {
        using Format = QTextCharFormat&;
        const std::tuple<const char*, SetFormat, QString, QString> rows[] = {
            {"bold", [](Format f) { f.setFontWeight(QFont::Bold); }, u"x"_s, u"<b>x</b>"_s},
            {"italic", [](Format f) { f.setFontItalic(true); }, u"x"_s, u"<i>x</i>"_s},
            {"underline", [](Format f) { f.setFontUnderline(true); }, u"x"_s, u"<u>x</u>"_s},
            {"struck through", [](Format f) { f.setFontStrikeOut(true); }, u"x"_s, u"<s>x</s>"_s},
            {"raised", [](Format f) { f.setVerticalAlignment(QTextCharFormat::AlignSuperScript); }, u"x"_s,
             u"<sup>x</sup>"_s},
            {"lowered", [](Format f) { f.setVerticalAlignment(QTextCharFormat::AlignSubScript); }, u"x"_s,
             u"<sub>x</sub>"_s},
            {"colour", [](Format f) { f.setForeground(QColor(18, 52, 86)); }, u"x"_s,
             u"<font color=\"#123456\">x</font>"_s},
            {"size", [](Format f) { f.setFontPointSize(20); }, u"x"_s, u"<span style=\"font-size:20pt\">x</span>"_s},
            {"family", [](Format f) { f.setFontFamilies({u"Courier New"_s}); }, u"x"_s,
             u"<font face=\"Courier New\">x"_s},
            {"signs", [](Format f) { f.setFontFamilies({u"Symbol"_s}); }, u"αΣ"_s, u"&alpha;&Sigma;"_s},
            {"letters of the west", [](Format) {}, u"café €"_s, u"caf&eacute; &euro;"_s},
            {"other letters", [](Format) {}, u"ж"_s, u"&#1078;"_s},
        };
        for (const auto& [name, set, text, html] : rows) {
            const InRow inRow(this, name);
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
    }

    void WhatOthersWrite()
    {
        // text: "|" ends a paragraph
        const std::pair<QString, QString> rows[] = {
            {u"editcontrol.rtf"_s, u"Milk and bread|•\ttwo\tthree|•\tfour|five\u2028sixseven"_s},
            {u"wordprocessor.rtf"_s, u"příliš žluť|Łybox|last"_s},
            {u"foreign.rtf"_s, u"One|two–\u2028three"_s},
            {u"tables.rtf"_s, u"a\tb|x\ty|c\td|after"_s},
            {u"fields.rtf"_s, u"See here anda|b, page 7 n m."_s},
            {u"plain.rtf"_s, u"No rich text: grüße {a} \\b|next line|"_s},
        };
        for (const auto& [file, text] : rows) {
            const InRow inRow(this, file);
            QFile corpus(QStringLiteral(RTF_CORPUS "/") + file);
            QVERIFY(corpus.open(QIODevice::ReadOnly));
            QTextDocument document;
            ReadRtf(corpus.readAll(), document);
            QCOMPARE(document.toRawText().replace(QChar::ParagraphSeparator, u'|'), text);
        }
    }
};

ORRELIN_TEST(RtfInterchangeTest)
#include "rtfinterchangetest.moc"
