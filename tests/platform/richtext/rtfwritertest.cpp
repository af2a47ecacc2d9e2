#include "platform/richtext/rtfwriter.h"

#include "notes.h"
#include "platform/richtext/linklook.h"
#include "platform/richtext/richtextbox.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/selectionformat.h"
#include "platform/richtext/undooffer.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QTemporaryFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

// A document with every format and character of notes, always the same for the same seed.
class RandomDocument
{
public:
    RandomDocument(quint32 seed, QTextDocument& document) : m_random(seed), m_cursor(&document) { Fill(); }

private:
    bool Is(int oneIn) { return m_random.bounded(oneIn) == 0; }

    template <typename T>
    T OneOf(std::initializer_list<T> values)
    {
        return values.begin()[m_random.bounded(static_cast<int>(values.size()))];
    }

    void Fill()
    {
        m_cursor.setBlockFormat(Block());
        m_cursor.setBlockCharFormat(Character());
        for (int paragraph = m_random.bounded(6); paragraph >= 0; --paragraph) {
            for (int run = m_random.bounded(6); run > 0; --run)
                Insert();
            if (paragraph > 0) m_cursor.insertBlock(Block(), Character());
        }
    }

    void Insert()
    {
        QTextCharFormat format = Character();
        if (Is(4)) {
            format = LinkFormat(format, OneOf({u"http://a.b/?c=d&e#f"_s, u"#top"_s, u"\\\\s\\d\"{}\t é 日"_s,
                                               u"javascript:x"_s, u"mailto:a@b"_s}));
        }
        if (!Is(12)) return m_cursor.insertText(Text(), format);
        const QByteArray source = "{\\pict\\pngblip " + QByteArray::number(m_random.bounded(256), 16) + '}';
        RtfTokenizer behindTheWord(QByteArrayView(source).sliced(6));
        QTextImageFormat picture = ToImageFormat(ReadRtfPicture(behindTheWord, "pict"), *m_cursor.document());
        format.merge(picture);
        m_cursor.insertImage(format.toImageFormat());
    }

    QString Text()
    {
        QString text;
        for (int length = 1 + m_random.bounded(12); length > 0; --length)
            text += Piece();
        return text;
    }

    QString Piece()
    {
        const auto any = [&](int least, int most) { return QString(QChar(m_random.bounded(least, most))); };
        const char32_t codePoint = m_random.bounded(0x10000, 0x110000);
        switch (m_random.bounded(10)) {
        case 8:
            return OneOf({u"α"_s, u"•"_s, u"✓ "_s, u"☺"_s, u"🕐"_s, u"∴"_s, u"a"_s, u"♈"_s});
        case 0:
            return OneOf({u"\t"_s, u"\u2028"_s, u"\u00A0"_s, u"\u00AD"_s, u"\u2011"_s, u"  "_s, u"\uFFFC"_s});
        case 1:
            return OneOf({u"\\"_s, u"{"_s, u"}"_s, u"?"_s, u"-7"_s, u"\\par "_s, u";"_s, u"\\'e9"_s});
        case 2:
            return any(0x80, 0x2000);
        case 3:
            return any(0x2030, 0xF000); // the private symbol characters above would be read as the symbols
        case 4:
            return any(0xFDF0, 0x10000);
        case 5:
            return QString::fromUcs4(&codePoint, 1);
        case 6:
            return OneOf({u"\x01"_s, u"\x0B"_s, u"\x0C"_s, u"\x1F"_s, u"\x7F"_s});
        default:
            return any(' ', 0x7F);
        }
    }

    QTextCharFormat Character()
    {
        using Format = QTextCharFormat;
        Format format;
        format.merge(NameFormat(OneOf(
            {u"Arial"_s, u"Times New Roman"_s, u"A;{b}\\ "_s, u"Symbol"_s, u"Wingdings"_s, u" Ünïcödé 明朝😀"_s})));
        format.setFontPointSize((1 + m_random.bounded(3276)) / 2.0);
        format.setFontWeight(Is(2) ? QFont::Bold : QFont::Normal);
        format.setFontItalic(Is(2));
        format.setFontStrikeOut(Is(3));
        format.setUnderlineStyle(
            OneOf({Format::NoUnderline, Format::SingleUnderline, Format::DotLine, Format::DashUnderline,
                   Format::DashDotLine, Format::DashDotDotLine, Format::WaveUnderline}));
        if (Is(2)) format.setForeground(QColor(QRgb(m_random.generate())));
        if (Is(4)) format.setBackground(QColor(QRgb(m_random.generate())));
        if (Is(4)) format.setVerticalAlignment(Is(2) ? Format::AlignSuperScript : Format::AlignSubScript);
        if (Is(6)) {
            const int kind = m_random.bounded(8, static_cast<int>(std::size(RtfUnderlines)));
            format.setUnderlineStyle(RtfUnderlines[kind].style);
            format.setProperty(RtfUnderlineProperty, kind);
        }
        if (Is(6)) {
            const int rise = OneOf({1, -1}) * (1 + m_random.bounded(50));
            format.setProperty(RtfRiseProperty, rise);
            format.setBaselineOffset(rise * 50 / format.fontPointSize());
        }
        if (Is(6)) format.setFontCapitalization(Is(2) ? QFont::AllUppercase : QFont::SmallCaps);
        return format;
    }

    QTextBlockFormat Block()
    {
        QTextBlockFormat format;
        if (Is(2)) return format;
        if (Is(4)) format.setLayoutDirection(OneOf({Qt::RightToLeft, Qt::LeftToRight}));
        if (Is(2))
            format.setAlignment(OneOf({Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter, Qt::AlignJustify}) |
                                Qt::AlignAbsolute);
        const auto pixels = [&] { return (1 + m_random.bounded(30000)) / 15.0; };
        if (Is(3)) format.setLeftMargin(pixels());
        if (Is(3)) format.setRightMargin(pixels());
        if (Is(3)) format.setTextIndent(OneOf({1, -1}) * pixels());
        if (Is(3)) format.setTopMargin(pixels());
        if (Is(3)) format.setBottomMargin(pixels());
        if (Is(3)) format.setLineHeight((1 + m_random.bounded(960)) / 2.4, QTextBlockFormat::ProportionalHeight);
        if (Is(5))
            format.setLineHeight(pixels(), OneOf({QTextBlockFormat::FixedHeight, QTextBlockFormat::MinimumHeight}));
        QList<QTextOption::Tab> tabs;
        for (int count = m_random.bounded(4); count > 0; --count)
            tabs.append(QTextOption::Tab(pixels(), OneOf({QTextOption::LeftTab, QTextOption::RightTab,
                                                          QTextOption::CenterTab, QTextOption::DelimiterTab})));
        if (!tabs.isEmpty()) format.setTabPositions(tabs);
        return ToBlockFormat(ToRtfParagraph(format)); // rounds indents and stops to the shown ones
    }

    QRandomGenerator m_random;
    QTextCursor m_cursor;
};

QString Describe(const QTextCharFormat& shown)
{
    QString text;
    const QTextCharFormat f = WithoutLinkLook(shown);
    QDebug(&text) << f.fontFamilies() << f.fontPointSize() << f.fontWeight() << f.fontItalic() << f.fontStrikeOut()
                  << f.underlineStyle() << f.foreground() << f.background() << f.verticalAlignment()
                  << f.fontCapitalization() << f.property(PictureSourceProperty) << f.toImageFormat().width()
                  << f.property(RtfUnderlineProperty) << f.property(RtfRiseProperty) << f.baselineOffset()
                  << f.isAnchor() << f.anchorHref();
    return text;
}

QString Describe(const QTextBlockFormat& f)
{
    QString text;
    QDebug out(&text);
    out << f.layoutDirection() << f.alignment() << f.leftMargin() << f.rightMargin() << f.textIndent() << f.topMargin()
        << f.bottomMargin() << f.lineHeight() << f.lineHeightType();
    for (const QTextOption::Tab& tab : f.tabPositions())
        out << tab.position << tab.type;
    return text;
}

// Describes the document for comparison, one line for each paragraph and run.
QStringList Describe(const QTextDocument& document)
{
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        lines += Describe(block.blockFormat());
        if (block.length() == 1) lines += Describe(block.charFormat());
        for (auto i = block.begin(); !i.atEnd(); ++i)
            lines += i.fragment().text() + Describe(i.fragment().charFormat());
    }
    return lines;
}

// The document as another program reads it.
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

} // namespace

class RtfWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AnyDocumentComesBackTheSame()
    {
        constexpr quint32 rounds = 400;
        RichTextBox offered;
        QByteArray shown = WriteRtf(QTextDocument()); // the output of the previous round
        for (quint32 seed = 1; seed <= rounds; ++seed) {
            QTextDocument written;
            RandomDocument(seed, written);
            const QByteArray rtf = WriteRtf(written);
            QVERIFY2(std::ranges::all_of(rtf, [](uchar byte) { return byte < 0x7F && byte != 0; }), rtf);
            QTextDocument read;
            ReadRtf(rtf, read);
            const QByteArray message = "seed " + QByteArray::number(seed) + '\n' + rtf;
            if (Describe(read) != Describe(written)) qWarning("%s", message.constData());
            QCOMPARE(Describe(read), Describe(written));
            QVERIFY2(WriteRtf(read) == rtf, message);
            offered.SetTextRTF(shown);
            OfferByUndo(offered, read);
            QVERIFY2(WriteRtf(*offered.document()) == shown, message);
            offered.undo();
            QCOMPARE(offered.document()->toRawText(), read.toRawText());
            offered.undo();
            QCOMPARE(PlainText(offered.TextRTF()), PlainText(shown));
            shown = rtf;
        }
    }

    void WritesWhatOthersRead()
    {
        QTextDocument document;
        document.setDefaultFont(QFont(u"Verdana"_s, 8));
        QTextCursor cursor(&document);
        cursor.insertText(u"Tea {5}\t"_s);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        bold.setForeground(QColor(255, 0, 0));
        cursor.insertText(u"café"_s, bold);
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        cursor.insertBlock(centred, bold);
        cursor.insertBlock(centred, QTextCharFormat());
        cursor.insertText(u"1😀 "_s);
        QCOMPARE(WriteRtf(document), "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Verdana;}}\r\n"
                                     "{\\colortbl ;\\red255\\green0\\blue0;}\r\n"
                                     "\\viewkind4\\uc1\\pard\\f0\\fs16 Tea \\{5\\}\\tab\\b\\cf1 caf\\u233?\\par\r\n"
                                     "\\pard\\qc\\par\r\n\\b0\\cf0 1\\u-10179?\\u-8704? \\par\r\n}\r\n");
    }

    void AnotherReaderReadsIt()
    {
        using Format = QTextCharFormat;
        const auto with = [](auto set, auto value) {
            Format format = NameFormat(u"Arial"_s);
            format.setFontPointSize(12);
            (format.*set)(value);
            return format;
        };
        const std::tuple<QString, Format, QString> runs[] = {
            {u"a"_s, with(&Format::setFontWeight, QFont::Bold), u"<b>a</b>"_s},
            {u"b"_s, with(&Format::setFontItalic, true), u"<i>b</i>"_s},
            {u"c"_s, with(&Format::setFontUnderline, true), u"<u>c</u>"_s},
            {u"d"_s, with(&Format::setFontStrikeOut, true), u"<s>d</s>"_s},
            {u"e"_s, with(&Format::setVerticalAlignment, Format::AlignSuperScript), u"<sup>e</sup>"_s},
            {u"f"_s, with(&Format::setVerticalAlignment, Format::AlignSubScript), u"<sub>f</sub>"_s},
            {u"g"_s, with(&Format::setForeground, QColor(18, 52, 86)), u"<font color=\"#123456\">g</font>"_s},
            {u"h"_s, with(&Format::setFontPointSize, 20), u"<span style=\"font-size:20pt\">h</span>"_s},
            {u"i"_s, with(&Format::setFontFamilies, QStringList{u"Courier New"_s}), u"<font face=\"Courier New\">i"_s},
            {u"αΣ"_s, with(&Format::setFontFamilies, QStringList{u"Symbol"_s}), u"&alpha;&Sigma;"_s},
            {u"é € ж"_s, with(&Format::setFontItalic, false), u"&eacute; &euro; &#1078;"_s},
        };
        QTextDocument document;
        QTextCursor cursor(&document);
        for (const auto& [text, format, html] : runs) {
            cursor.insertText(u"plain "_s, with(&Format::setFontItalic, false));
            cursor.insertText(text, format);
        }
        const QString read = OtherReader("--html", document);
        for (const auto& [text, format, html] : runs)
            QVERIFY2(read.contains(html), qPrintable(html + u'\n' + read));
        document.setPlainText(u"Tea {5} \\ 7;\tnow\n-1 third\u2028line"_s);
        const QString text = OtherReader("--text", document).section(u"-----------------\n"_s, 1).simplified();
        QCOMPARE(text, u"Tea {5} \\ 7; now -1 third line"_s);
    }

    // Symbols are written as bytes of their font. A link is a group, and after it the earlier formats apply again.
    void WritesSignsAndLinks()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextCharFormat link;
        cursor.insertText(u"α•a"_s, NameFormat(u"Symbol"_s));
        link.setAnchor(true);
        link.setAnchorHref(u"http://a/\\"_s);
        link.setFontWeight(QFont::Bold);
        cursor.insertText(u"here"_s, link);
        cursor.insertText(u" there"_s, QTextCharFormat());
        document.setDefaultFont(QFont(u"Arial"_s, 10));
        QCOMPARE(WriteRtf(document), "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset2 Symbol;}"
                                     "{\\f1\\fnil\\fcharset0 Arial;}}\r\n{\\colortbl ;}\r\n"
                                     "\\viewkind4\\uc1\\pard\\f0\\fs20\\'61\\'b7\\u97?"
                                     "{\\field{\\*\\fldinst{HYPERLINK \"http://a/\\\\\\\\\"}}{\\fldrslt\\b\\f1 here}}"
                                     "\\f1  there\\par\r\n}\r\n");
    }

    void WhatAFormatLeavesOpenComesFromTheDefaultFont()
    {
        QTextDocument document(u"x"_s);
        QFont font(u"Courier New"_s, 11, QFont::Bold, true);
        font.setUnderline(true);
        font.setStrikeOut(true);
        document.setDefaultFont(font);
        QTextDocument read;
        ReadRtf(WriteRtf(document), read);
        const QTextCharFormat format = read.begin().begin().fragment().charFormat();
        QCOMPARE(format.fontFamilies().toStringList(), QStringList{u"Courier New"_s});
        QCOMPARE(format.fontPointSize(), 11.0);
        QCOMPARE(format.fontWeight(), int(QFont::Bold));
        QVERIFY(format.fontItalic() && format.fontUnderline() && format.fontStrikeOut());
    }

    void SelectionAlone()
    {
        // inserted between "<" and ">"
        const std::tuple<const char*, int, int, QString> rows[] = {
            {"within a paragraph", 1, 2, u"<b>"_s},
            {"with its mark", 1, 4, u"<bc\u2029>"_s},
            {"over paragraphs", 2, 6, u"<c\u2029d\u2029>"_s},
            {"all", 0, 8, u"<abc\u2029d\u2029ef>"_s},
            {"nothing", 3, 3, u"<>"_s},
        };
        for (const auto& [name, from, to, inserted] : rows) {
            const InRow inRow(this, name);
            QTextDocument document(u"abc\nd\nef"_s);
            QTextCursor cursor(&document);
            cursor.setPosition(to);
            cursor.setPosition(from, QTextCursor::KeepAnchor);
            QTextDocument target(u"<>"_s);
            QTextCursor at(&target);
            at.setPosition(1);
            InsertRtf(WriteRtf(cursor), at);
            QCOMPARE(target.toRawText(), inserted);
        }
    }
};

ORRELIN_TEST(RtfWriterTest)
#include "rtfwritertest.moc"
