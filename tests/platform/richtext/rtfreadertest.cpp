#include "platform/richtext/rtfreader.h"

#include "platform/richtext/linklook.h"
#include "platform/richtext/notetext.h"
#include "platform/richtext/rtftextview.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/samplepictures.h"
#include "testmain.h"

#include <QFile>
#include <QTextBlock>

#include <functional>

namespace {

// The visible text: "|" ends a paragraph, "/" a line, "#" stands for a picture.
QString TextOf(const QTextDocument& document)
{
    QString text = document.toRawText();
    text.replace(QChar::ParagraphSeparator, u'|');
    text.replace(QChar::LineSeparator, u'/');
    return text.replace(QChar::ObjectReplacementCharacter, u'#');
}

QString Read(const QByteArray& rtf)
{
    QTextDocument document;
    ReadRtf(rtf, document);
    const QString text = TextOf(document);
    // A search reads the text without a document.
    const QString shown = ShownText(rtf).replace(QChar::Nbsp, u' ');
    return shown == document.toPlainText() ? text : u"the search reads "_s + shown;
}

// The format of the first "x".
QTextCharFormat FormatAtX(QTextDocument& document)
{
    return document.find(u"x"_s, 0, QTextDocument::FindCaseSensitively).charFormat();
}

} // namespace

class RtfReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Text()
    {
        const QByteArray fonts =
            "{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}{\\f2\\fcharset128 "
            "C;}{\\f3\\fcharset134 D;}{\\f4\\fcharset129 "
            "E;}{\\f5\\fcharset161 F;}{\\f6\\fcharset77 G;}{\\f7\\fcharset128\\cpg65001 "
            "H;}{\\f8\\fcharset254 I;}{\\f9\\fcharset222 J;}{\\f10\\fcharset2 Symbol;}{\\f11\\fcharset2 "
            "L;}{\\f12\\fcharset2 Wingdings;}{\\f13\\fcharset2 Webdings;}{\\f14\\fcharset88 M;}{\\f15\\fcharset80 N;}}";
        const auto row = [this, fonts](const char* name, const QByteArray& body, const QString& text) {
            if (QTest::currentTestFailed()) return;
            const InRow inRow(this, name);
            QCOMPARE(Read("{\\rtf1\\ansi\\ansicpg1252\\deff0" + fonts + body), text);
        };
        row("last mark ends the last paragraph", "a\\par b\\par}", u"a|b"_s);
        row("no mark at the end", "a\\par b}", u"a|b"_s);
        row("empty paragraphs", "\\par\\par a\\par\\par}", u"||a|"_s);
        row("nothing", "}", u""_s);
        row("line ends are no text", "a\r\nb\nc\\par\r\n}\r\n", u"abc"_s);
        row("escaped line end is a paragraph", "a\\\r\nb\\\nc}", u"a|b|c"_s);
        row("blank that ends a word is no text", "a\\b b\\b0  c \\par}", u"ab c "_s);
        row("escapes", "\\{\\\\\\}\\~\\_\\-}", u"{\\}\u00A0\u2011\u00AD"_s);
        row("words for characters", "a\\tab\\line\\bullet\\lquote\\rquote\\ldblquote\\rdblquote\\endash\\emdash.}",
            u"a\t/\u2022\u2018\u2019\u201C\u201D\u2013\u2014."_s);
        row("raw tab", "a\tb}", u"a\tb"_s);
        row("unknown words", "a\\nosuchword42 b\\another-7c}", u"abc"_s);
        row("NUL bytes", QByteArrayLiteral("a\0\0b\\b\0 \0c\0}\0"), u"ab c"_s);
        row("hex, document's page", "caf\\'e9 \\'80}", u"café €"_s);
        row("hex, broken", "a\\'zzb\\'}", u"azzb"_s);
        row("hex, carriage return", "a\\'0db}", u"a|b"_s);
        row("raw byte", "caf\xe9}", u"café"_s);
        row("charset 204", "\\f1\\'cf\\'f0\\f0\\'cf}", u"ПрÏ"_s);
        row("charset 161", "\\f5\\'e1}", u"α"_s);
        row("charset 77", "\\f6\\'8e}", u"é"_s);
        row("charset 88", "\\f14\\'8b\\'9f}", u"čü"_s);
        row("charset 80", "\\f15\\'c4\\'e3}", u"你"_s);
        row("charset 254", "\\f8\\'e1}", u"ß"_s);
        row("charset 222", "\\f9\\'a1}", u"ก"_s);
        row("two bytes in hex", "\\f2\\'93\\'fa\\'96\\'7b}", u"日本"_s);
        row("two bytes, hex and letter", "\\f2\\'83A\\'83\\\\x}", u"アソx"_s);
        row("two bytes, both raw",
            "\\f2 \x93\xfa"
            "A}",
            u"日A"_s);
        row("two bytes, never ended", "\\f2 a\\'e0\\b x}", u"aàx"_s);
        row("two bytes, broken among good ones", "\\f2\\'93\\'fa\\'96\\'7b\\'96 x}", u"日本\uFFFD x"_s);
        row("signs", "\\f10 a\\'b7\\u-3999?\\u-3913?\\u97?\\tab\\~}", u"α•α•a\t\u00A0"_s);
        row("signs of a font that is told by its charset alone", "\\f11\\'b7}", u"•"_s);
        row("signs of Wingdings", "\\f12 J\\'fc\\'e0\\'d8\\'ff}", u"☺✓→➢\uF0FF"_s);
        row("signs without a table", "\\f13 a}", u"\uF061"_s);
        row("GBK", "\\f3\\'c4\\'e3}", u"你"_s);
        row("Korean", "\\f4\\'c7\\'d1}", u"한"_s);
        row("font's own page", "\\f7\\'e4\\'b8\\'ad}", u"中"_s);
        row("unicode", "\\u8364?\\u-10179?\\u-8704?x}", u"€😀x"_s);
        row("unicode unsigned and whole", "\\u65281?\\u128512?x}", u"！😀x"_s);
        row("fallback lengths", "\\uc2\\u233ab\\uc0\\u233 c{\\uc1\\u233\\'e9}\\u233 d}", u"éécééd"_s);
        row("fallback ends with its group", "{\\uc5\\u233 a}bc}", u"ébc"_s);
        row("fallback is never a word", "\\u233\\par b}", u"é|b"_s);
        row("hidden", "a{\\v secret\\u233?\\'e9\\tab}b\\v c\\v0 d}", u"abd"_s);
        row("skipped destinations", "a{\\info{\\title t}}{\\stylesheet{\\s1 s;}}{\\header h}{\\*\\unknown u{v}}b}",
            u"ab"_s);
        row("star within a group", "a{\\i\\*\\cs7 b}c}", u"abc"_s);
        row("damaged word is no destination", "a\\sp b\\par\\info c}", u"ab|c"_s);
        row("field", "{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt shown}}}", u"shown"_s);
        row("upr", "{\\upr{ansi \\bullet}{\\*\\ud{wide \\u8364?}}}}", u"wide €"_s);
        row("list texts", "{\\pntext\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}a\\par{\\listtext 2.\\tab}b}",
            u"·\ta|2.\tb"_s);
        row("table", "\\trowd\\cellx9\\intbl a\\cell b\\cell\\row\\intbl\\cell c\\cell\\row\\pard d}", u"a\tb|\tc|d"_s);
        row("nested table",
            "\\intbl a\\nestcell b\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par}c\\cell\\row}",
            u"a\tb|c"_s);
        row("section", "a\\sect b\\par\\page c}", u"a|b|c"_s);
        row("binary", "a\\bin5 }{\\}}b\\bin0 c\\bin-3 d}", u"abcd"_s);
        row("binary longer than the text", "a\\bin2147483647 b}", u"a"_s);
        row("pair split by a group", "\\u-10179?{\\b\\u-8704?}x}", u"😀x"_s);
        row("half a pair", "\\u-10179?x}", u"\xD83Dx"_s);
        row("a font told twice", "{\\fonttbl{\\f1\\fcharset161 B;}}\\f1\\'e1}", u"α"_s);
        row("a font told behind its use", "\\f20\\'e9{\\fonttbl{\\f20\\fcharset204 B;}}\\'e9\\f20\\'e9}", u"ééй"_s);
        row("shape", "{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}{\\shptxt box\\par}}{\\shprslt again}}a}", u"box|a"_s);
        row("unclosed", "a{\\b b{\\i c", u"abc"_s);
        row("too many closed", "a}}}b", u"ab"_s);
        row("characters a document cannot hold", "a\\u8233?\\u-560?\\u0?b}", u"a/b"_s);
        row("unknown code page", "\\ansicpg77777\\'e9}", u"é"_s);
        row("pictures", "{\\pict 00}{\\pict 00}\\par{\\pict 01}}", u"##|#"_s);
        row("no pictures", "a{\\pict}{\\pict\\pngblip {\\*\\x y}}{\\object{\\*\\objdata 01}{\\result text}}b}",
            u"atextb"_s);
        row("hidden pictures", "a{\\v{\\pict 00}{\\object{\\result{\\pict 00}}}}b}", u"ab"_s);
    }

    void WhatOthersWrite()
    {
        const std::pair<QString, QString> rows[] = {
            {u"editcontrol.rtf"_s, u"Milk and bread|•\ttwo\tthree|•\tfour|five/sixseven"_s},
            {u"wordprocessor.rtf"_s, u"příliš žluť|Łybox|last"_s},
            {u"foreign.rtf"_s, u"One|two–/three"_s},
            {u"tables.rtf"_s, u"a\tb|x\ty|c\td|after"_s},
            {u"fields.rtf"_s, u"See here anda|b, page 7 n m."_s},
            {u"plain.rtf"_s, u"No rich text: grüße {a} \\b|next line|"_s},
        };
        for (const auto& [file, text] : rows) {
            const InRow inRow(this, file);
            QFile corpus(QStringLiteral(RTF_CORPUS "/") + file);
            QVERIFY(corpus.open(QIODevice::ReadOnly));
            QCOMPARE(Read(corpus.readAll()), text);
        }
    }

    // As the search sees a stored note: a line end separates the bytes before it from the letters after it.
    void TextViewKeepsLineEnds()
    {
        for (const char* letter : {"\\'e9", "\xe9", "\\u233?"})
            QCOMPARE(RtfTextView.Read(QByteArray("{\\rtf1 ") + letter + "\nab}"), u"{\\rtf1 é\nab}"_s);
    }

    void CharFormat()
    {
        const auto row = [this](const QByteArray& body, const std::function<bool(const QTextCharFormat&)>& check) {
            if (QTest::currentTestFailed()) return;
            const InRow inRow(this, body.constData());
            QTextDocument document;
            document.setDefaultFont(QFont(u"Courier"_s, 30, QFont::Black, true));
            ReadRtf(
                "{\\rtf1\\ansi\\deff7{\\fonttbl{\\f7\\fswiss Arial;}{\\f1\\fcharset0 \\'c4rger\\'3b \\{\\\\\\} Neue;}"
                "{\\f2\\fcharset204{\\*\\panose 02}\\'cd\\'ee\\'e2\\u1072?{\\*\\falt Other};}\\f3 Times;}"
                "{\\colortbl;\\red10\\green20\\blue30;\\red0\\green0\\blue0;\\red999\\green-5;}" +
                    body + "}",
                document);
            QVERIFY(check(FormatAtX(document)));
        };
        using Format = const QTextCharFormat&;
        const auto isPlain = [](Format f) {
            return f.fontFamilies() == QStringList{u"Arial"_s} && f.fontPointSize() == 12 &&
                   f.fontWeight() == QFont::Normal && f.hasProperty(QTextFormat::FontItalic) && !f.fontItalic() &&
                   f.hasProperty(QTextFormat::TextUnderlineStyle) && !f.fontUnderline() &&
                   f.hasProperty(QTextFormat::FontStrikeOut) && !f.fontStrikeOut() &&
                   !f.hasProperty(QTextFormat::ForegroundBrush) && !f.hasProperty(QTextFormat::BackgroundBrush);
        };
        const auto size = [](double points) { return [=](Format f) { return f.fontPointSize() == points; }; };
        const auto family = [](const QString& name) {
            return [=](Format f) { return f.fontFamilies() == QStringList{name}; };
        };
        const auto color = [](QRgb rgb) { return [=](Format f) { return f.foreground().color().rgb() == rgb; }; };
        const auto vertical = [](auto align) { return [=](Format f) { return f.verticalAlignment() == align; }; };
        const auto offset = [](double percent) { return [=](Format f) { return f.baselineOffset() == percent; }; };
        const auto link = [](const QString& address) {
            return [=](Format shown) {
                const QTextCharFormat f = WithoutLinkLook(shown);
                return f.anchorHref() == address && f.fontWeight() == QFont::Normal && !f.fontUnderline();
            };
        };
        const auto underline = [](auto style) { return [=](Format f) { return f.underlineStyle() == style; }; };
        row("x", isPlain);
        row("\\b\\i\\ul\\strike\\cf1\\highlight1\\f1\\fs30\\super\\plain x", isPlain);
        row("{\\b\\i\\ul\\strike\\cf1\\f1\\fs30}x", isPlain);
        row("\\b\\i\\b0\\i0\\ul\\ul0\\strike\\strike0\\cf2\\cf0 x", isPlain);
        row("\\cf-1\\highlight99999\\cb2147483648 x", isPlain);
        row("\\b1 x", [](Format f) { return f.fontWeight() == QFont::Bold && !f.fontItalic(); });
        row("\\i\\strike x", [](Format f) { return f.fontItalic() && f.fontStrikeOut() && !f.fontUnderline(); });
        row("\\ul x", underline(QTextCharFormat::SingleUnderline));
        row("\\uldb x", underline(QTextCharFormat::SingleUnderline));
        row("\\ulwave x", underline(QTextCharFormat::WaveUnderline));
        row("\\ulwave\\ulnone x", underline(QTextCharFormat::NoUnderline));
        row("\\fs17 x", size(8.5));
        row("\\fs0 x", size(12));
        row("\\fs-8 x", size(12));
        row("\\fs2147483648 x", size(1638));
        row("\\f1 x", family(u"Ärger; {\\} Neue"_s));
        row("\\f2 x", family(u"Нова"_s));
        row("\\f3 x", family(u"Times"_s));
        row("\\f1\\f-1 x", family(u"Arial"_s));
        row("\\f99999999999 x", family(u"Arial"_s));
        row("\\cf1 x", color(0xFF0A141E));
        row("\\cf2 x", color(0xFF000000));
        row("\\cf3 x", color(0xFFFF0000));
        row("\\highlight1 x", [](Format f) { return f.background().color().rgb() == 0xFF0A141E; });
        row("\\super x", vertical(QTextCharFormat::AlignSuperScript));
        row("\\up6 x", offset(25));
        row("\\dn x", offset(-25));
        row("\\fs48\\dn12 x", offset(-25));
        row("\\up6\\up0 x", offset(0));
        row("{\\field{\\*\\fldinst{HYPERLINK \"http://a/b c\"}}{\\fldrslt{\\b a\\plain x}}}", link(u"http://a/b c"_s));
        row("{\\field\\flddirty{\\*\\fldinst  hyperlink C:\\'5cd \\\\o \"tip\" \\\\l \"top\"}{\\fldrslt x}}",
            link(u"C:\\d#top"_s));
        row("{\\field{\\*\\fldinst HYPERLINK \"\\\\\\\\s\\\\\\\\d\\\\\"\\u8364?\"}{\\fldrslt x}}",
            link(u"\\s\\d\"€"_s));
        row("{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt b}}x", link({}));
        row("{\\*\\fldinst HYPERLINK \"a\"}x", link({}));
        row("{\\field{\\*\\fldinst PAGEREF a}{\\fldrslt x}}", link({}));
        row("\\sub\\nosupersub x", vertical(QTextCharFormat::AlignNormal));
        row("\\scaps x", [](Format f) { return f.fontCapitalization() == QFont::SmallCaps; });
        row("{\\b a}{\\i b\\par}x", isPlain);
    }

    // The place of "x" from the edge of the paper. The words before the text are written back unchanged.
    void Indents()
    {
        for (const auto& [words, text, pixels] :
             Rows<const char*, int>{{"\\fi-360\\li720", " a\\tab x", 48},
                                    {"\\fi-360\\li720", " a\\tab\\tab x", 96},
                                    {"\\fi-720\\li1080\\tqr\\tx900\\tx3000", " a\\tab\\tab x", 72},
                                    {"\\fi-360\\li720\\tx1440", " a\\tab\\tab x", 96},
                                    {"\\li360", " a\\tab x", 48},
                                    {"\\li360\\tx1440", " a\\tab x", 96},
                                    {"\\fi-360", " a\\tab x", 24}}) {
            const InRow inRow(this, QString::fromLatin1(words) + QString::fromLatin1(text));
            QTextDocument document;
            document.setDocumentMargin(0);
            document.setTextWidth(400);
            ReadRtf(QByteArray("{\\rtf1\\fs8\\pard") + words + text + "}", document);
            const QTextBlock block = document.begin();
            QVERIFY(document.size().height() > 0);
            const int at = static_cast<int>(block.text().indexOf(u'x'));
            const QTextLine line = block.layout()->lineForTextPosition(at);
            QCOMPARE(qRound(block.layout()->position().x() + line.cursorToX(at)), pixels);
            QVERIFY2(WriteRtf(document).contains(QByteArray("\\pard") + words + "\\f0"), WriteRtf(document));
        }
    }

    void BlockFormat()
    {
        const auto row = [this](const QByteArray& body, const std::function<bool(const QTextBlockFormat&)>& check) {
            if (QTest::currentTestFailed()) return;
            const InRow inRow(this, body.constData());
            QTextDocument document;
            ReadRtf("{\\rtf1\\ansi " + body + "}", document);
            QVERIFY(check(document.find(u"x"_s).blockFormat()));
        };
        using Format = const QTextBlockFormat&;
        const auto aligned = [](Qt::Alignment a) { return [=](Format f) { return f.alignment() == a; }; };
        row("x", [](Format f) { return f.propertyCount() == 0; });
        row("\\qc\\li99\\fi-9\\tx5\\sl480\\rtlpar a\\par\\pard x", [](Format f) { return f.propertyCount() == 0; });
        row("\\qc a\\par x", aligned(Qt::AlignHCenter));
        row("x\\qr\\par a", aligned(Qt::AlignRight | Qt::AlignAbsolute));
        row("\\qj x\\par\\pard", aligned(Qt::AlignJustify));
        row("\\qc\\ql x", aligned(Qt::AlignLeft | Qt::AlignAbsolute));
        row("\\ltrpar{\\rtlch\\fcs1\\af0\\ltrch x}", [](Format f) { return f.layoutDirection() == Qt::LeftToRight; });
        row("\\rtlpar\\qr x", [](Format f) {
            return f.alignment() == (Qt::AlignRight | Qt::AlignAbsolute) && f.layoutDirection() == Qt::RightToLeft;
        });
        row("\\li720\\ri360\\fi-360\\sb120\\sa240 x", [](Format f) {
            return f.leftMargin() == 48 && f.rightMargin() == 24 && f.textIndent() == -24 && f.topMargin() == 8 &&
                   f.bottomMargin() == 16;
        });
        row("\\li-99999\\ri99999999999 x", [](Format f) { return f.leftMargin() == 0 && f.rightMargin() == 2112; });
        row("\\sl360\\slmult1 x", [](Format f) {
            return f.lineHeight() == 150 && f.lineHeightType() == QTextBlockFormat::ProportionalHeight;
        });
        row("\\sl-300 x",
            [](Format f) { return f.lineHeight() == 20 && f.lineHeightType() == QTextBlockFormat::FixedHeight; });
        row("\\tx300\\tqr\\tx600\\tqdec\\tx900\\tx-7 x", [](Format f) {
            using Tab = QTextOption::Tab;
            return f.tabPositions() == QList<Tab>{Tab(20, QTextOption::LeftTab), Tab(40, QTextOption::RightTab),
                                                  Tab(60, QTextOption::DelimiterTab), Tab(0, QTextOption::LeftTab)};
        });
    }

    void WhatIsNotRichTextIsPlain()
    {
        const std::pair<QByteArray, QString> rows[] = {
            {" ", u" "_s},
            {"{\\rt1 a}\r\nb", u"{\\rt1 a}|b"_s},
            {"gr\xc3\xbc\xc3\x9f", u"grüß"_s},
            {"gr\xfc\xdf", u"grüß"_s},
            {QByteArrayLiteral("\0a\0"), u"a"_s},
            {QByteArrayLiteral("\0\r\n{\\rtf1 a}"), u"a"_s},
            {"", u""_s},
        };
        for (const auto& [text, read] : rows)
            QCOMPARE(Read(text), read);
    }

    void DeepAndLongInputStaysBounded()
    {
        constexpr int many = 100'000;
        const QByteArray groups(many, '{');
        QByteArray fonts, inFonts;
        for (int number = 0; number < many; ++number) {
            const QByteArray font = "\\f" + QByteArray::number(number);
            fonts += '{' + font + " F" + QByteArray::number(number) + ";}";
            inFonts += font + " a";
        }
        for (const auto& [name, body, text] :
             Rows<QByteArray, QString>{{"groups", groups + "a" + QByteArray(many, '}') + "\\b0 b}", u"ab"_s},
                                       {"groups never closed", groups + "a", u"a"_s},
                                       {"objects", QByteArray("{\\object").repeated(many) + " a", u"a"_s},
                                       {"word", "\\" + QByteArray(many, 'a') + " b}", u"b"_s},
                                       {"number", "\\b" + QByteArray(many, '9') + " b}", u"b"_s},
                                       {"tabs", QByteArray("\\tx5").repeated(many) + " a}", u"a"_s},
                                       {"fonts", "{\\fonttbl" + fonts + '}' + inFonts, QString(many, u'a')},
                                       {"cells", QByteArray("\\cell").repeated(many) + "\\row a}", u"|a"_s}}) {
            const InRow inRow(this, name);
            QCOMPARE(Read("{\\rtf1 " + body), text);
        }
    }

    void ReplacesTheDocumentWithoutUndo()
    {
        QTextDocument document(u"before"_s);
        QTextCursor(&document).insertText(u"typed"_s);
        ReadRtf("{\\rtf1\\qc a\\par}", document);
        QCOMPARE(TextOf(document), u"a"_s);
        QVERIFY(document.isUndoRedoEnabled());
        QVERIFY(!document.isUndoAvailable());
        QVERIFY(!document.isModified());
    }

    void InsertsAsOneStepOfUndo()
    {
        constexpr int Right = Qt::AlignRight, Centre = Qt::AlignHCenter;
        for (const auto& [name, from, to, body, text, expected] : Rows<int, int, QByteArray, QString, QList<int>>{
                 {"in a paragraph", 1, 1, "\\qc x", u"axb|cd"_s, {Right, Right}},
                 {"for a selection", 1, 4, "\\qc x", u"axd"_s, {Right}},
                 {"splitting", 1, 1, "\\qc x\\par y\\par z", u"ax|y|zb|cd"_s, {Right, Centre, Right, Right}},
                 {"at the end", 5, 5, "\\qc x\\par y\\par", u"ab|cdx|y|"_s, {Right, Right, Centre, Centre}},
                 {"for everything", 0, 5, "\\qc x", u"x"_s, {Centre}}}) {
            const InRow inRow(this, name);
            QTextDocument document;
            ReadRtf("{\\rtf1\\qr ab\\par cd\\par}", document);
            QTextCursor cursor = Selection(document, from, to);
            InsertRtf("{\\rtf1" + body + "}", cursor);
            QCOMPARE(TextOf(document), text);
            QList<int> alignments;
            for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
                alignments.append((block.blockFormat().alignment() & ~Qt::AlignAbsolute).toInt());
            QCOMPARE(alignments, expected);
            document.undo();
            QCOMPARE(TextOf(document), u"ab|cd"_s);
            QVERIFY(!document.isUndoAvailable());
        }
    }

    void Picture()
    {
        const std::tuple<QByteArray, QSizeF, QByteArray> rows[] = {
            // What is kept is empty if it is the whole body.
            {"{\\pict\\pngblip\\picwgoal1500\\pichgoal750 0a0B}", QSizeF(100, 50), {}},
            {"{\\pict\\wmetafile8\\picw2540\\pich1270 0102}", QSizeF(96, 48), {}},
            {"{\\pict\\dibitmap0\\picw20\\pich10\\picscalex200 00}", QSizeF(40, 10), {}},
            {"{\\pict\\picwgoal2000000000\\pichgoal-5 00}", QSizeF(4096, 32), {}},
            {"{\\pict\\jpegblip\\bin4 \xff{}\\}", QSizeF(32, 32), "{\\pict\\jpegblip ff7b7d5c}"},
            {"{\\*\\shppict{\\pict\\pngblip 01}}{\\nonshppict{\\pict\\wmetafile8 02}}", QSizeF(32, 32),
             "{\\pict\\pngblip 01}"},
            {"{\\pict{\\*\\picprop x}\\pngblip\r\n01\r\n02}", QSizeF(32, 32), "{\\pict{\\*\\picprop x}\\pngblip 0102}"},
            {"{\\object\\objemb{\\*\\objdata 0a}{\\result{\\pict\\picwgoal150\\pichgoal300 00}}}", QSizeF(10, 20), {}},
            {"{\\object{\\result \xe9\\'E9{\\pict 00", QSizeF(32, 32), "{\\object{\\result\\'e9\\'e9{\\pict 00}}}"}};
        for (const auto& [body, size, kept] : rows) {
            const InRow inRow(this, body.constData());
            QTextDocument document;
            ReadRtf("{\\rtf1 a" + body, document);
            const QTextImageFormat format = Selection(document, 1, 2).charFormat().toImageFormat();
            QVERIFY(format.isValid());
            QCOMPARE(QSizeF(format.width(), format.height()), size);
            const QByteArray written = WriteRtf(document);
            QVERIFY2(written.contains(kept.isEmpty() ? body : kept), written);
        }
    }
};

ORRELIN_TEST(RtfReaderTest)
#include "rtfreadertest.moc"
