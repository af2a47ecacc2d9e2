// What follows from typing by itself: links, lists, and the direction of paragraphs.
#include "notes.h"
#include "platform/desktop/openlink.h"
#include "platform/richtext/addresses.h"
#include "platform/richtext/notelinks.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "support.h"
#include "testmain.h"

#include <QClipboard>
#include <QTextBlock>
#include <QToolTip>

namespace {
// The text with its links as [text>target], or as [text] if that is the target.
QString LinksOf(const QTextDocument& document)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin()) text += u'/';
        for (int at = block.position(); at < block.position() + block.length() - 1; ++at) {
            const auto link = LinkAt(document, at);
            const int end = link ? link->end : at + 1;
            const QString shown = block.text().mid(at - block.position(), end - at);
            text += !link                   ? shown
                    : shown == link->target ? u'[' + shown + u']'
                                            : u'[' + shown + u'>' + link->target + u']';
            at = end - 1;
        }
    }
    return text.replace(QChar::LineSeparator, u'|');
}

struct Typing
{
    Typing()
    {
        box.resize(300, 200);
        box.SetBlankFormat(QFont(u"Arial"_s, 10), 0);
        box.show();
        box.activateWindow();
        (void)QTest::qWaitForWindowActive(&box);
        box.setFocus();
    }

    // "$" is Return, "<" Backspace, "|" Shift+Return, "Z" Ctrl+Z, "^" Home, "{" and "}" left and right,
    // ">" Delete, "~" Shift+Left. Letters beyond ASCII come by an input method.
    void Keys(const QString& keys)
    {
        static const QHash<QChar, QKeyCombination> named{
            {u'$', Qt::Key_Return},       {u'<', Qt::Key_Backspace}, {u'|', Qt::SHIFT | Qt::Key_Return},
            {u'Z', Qt::CTRL | Qt::Key_Z}, {u'^', Qt::Key_Home},      {u'{', Qt::Key_Left},
            {u'}', Qt::Key_Right},        {u'>', Qt::Key_Delete},    {u'~', Qt::SHIFT | Qt::Key_Left}};
        for (const QChar key : keys)
            if (named.contains(key))
                QTest::keyClick(&box, named[key].key(), named[key].keyboardModifiers());
            else if (key < u'\x7f')
                QTest::keyClicks(&box, key);
            else
                Commit(key);
    }

    void Commit(const QString& text)
    {
        QInputMethodEvent preedit(text, {}), commit;
        QCoreApplication::sendEvent(&box, &preedit);
        commit.setCommitString(text);
        QCoreApplication::sendEvent(&box, &commit);
    }

    QString Links() const { return LinksOf(*box.document()); }

    // The text with "_" before each paragraph that hangs.
    QString Lists() const
    {
        QStringList lines;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
            lines += (block.blockFormat().textIndent() < 0 ? u"_"_s : QString()) + block.text();
        return lines.join(u'/').replace(QChar::LineSeparator, u'|');
    }

    QPoint At(int position)
    {
        QTextCursor cursor(box.document());
        cursor.setPosition(position);
        return box.cursorRect(cursor).center() + QPoint(3, 0);
    }

    // Ctrl with a Shift key; the keys between are typed while both are down.
    void PressDirection(quint32 shift, Qt::Key between = Qt::Key_unknown)
    {
        const auto send = [&](QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers, quint32 number) {
            QKeyEvent event(type, key, modifiers, 0, number, 0);
            QCoreApplication::sendEvent(&box, &event);
        };
        send(QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier, 0xFFE3);
        send(QEvent::KeyPress, Qt::Key_Shift, Qt::ControlModifier, shift);
        if (between != Qt::Key_unknown)
            send(QEvent::ShortcutOverride, between, Qt::ControlModifier | Qt::ShiftModifier, 0);
        send(QEvent::KeyRelease, Qt::Key_Shift, Qt::ControlModifier | Qt::ShiftModifier, shift);
        send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier, 0xFFE3);
    }

    RichTextBox box;
};

// Hands its selection over as a drag to another program that moves text does.
struct TakenFrom : RichTextBox
{
    QMimeData* createMimeDataFromSelection() const override
    {
        QMimeData* taken = RichTextBox::createMimeDataFromSelection();
        textCursor().removeSelectedText();
        return taken;
    }
};

constexpr quint32 LeftKey = 0xFFE1, RightKey = 0xFFE2;
} // namespace

class NoteTypingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addresses()
    {
        for (const auto& [text, found] : std::initializer_list<std::pair<QString, QString>>{
                 {u"http://a.b"_s, u"http://a.b"_s},
                 {u"(see https://a.b/c_(d)), or"_s, u"https://a.b/c_(d)"_s},
                 {u"\"HTTP://A.b/?x=1&y=(2)\"."_s, u"HTTP://A.b/?x=1&y=(2)"_s},
                 {u"see:ftp://a.b/c!"_s, u"ftp://a.b/c"_s},
                 {u"www.a.org, WWW.A.ORG/x;"_s, u"http://www.a.org http://WWW.A.ORG/x"_s},
                 {u"<ann.b+c@d.example.org>"_s, u"mailto:ann.b+c@d.example.org"_s},
                 {u"mailto:a@b?subject=x file:///home/a.txt"_s, u"mailto:a@b?subject=x file:///home/a.txt"_s},
                 {u"http://m\u00fcnchen.example/\u00e4"_s, u"http://m\u00fcnchen.example/\u00e4"_s},
                 {u"http:// http://. www. www.a a@b a@b.c @b.org http:a.b git@a.org:b/c xhttp://a.b"_s, {}},
                 {u"file://server/a mailto:a@b?attach=/etc/passwd"_s, {}}}) {
            const InRow inRow(this, text);
            QStringList targets;
            for (const Address& address : AddressesIn(text)) {
                targets += address.target;
                QVERIFY(address.target.endsWith(text.mid(address.begin, address.size)));
            }
            QCOMPARE(targets.join(u' '), found);
        }
    }

    void typedAddressesBecomeLinks()
    {
        for (const auto& [name, keys, links] :
             Rows<QString, QString>{{"a word goes on", u"http://a.b"_s, u"http://a.b"_s},
                                    {"a blank", u"x http://a.b, y"_s, u"x [http://a.b], y"_s},
                                    {"a paragraph", u"www.a.org$x"_s, u"[www.a.org>http://www.a.org]/x"_s},
                                    {"a line", u"a@b.org|x"_s, u"[a@b.org>mailto:a@b.org]|x"_s},
                                    {"taken back", u"http://a.b xZZ"_s, u"http://a.b "_s},
                                    {"taken back, the caret stays", u"http://a.b Zx y "_s, u"http://a.b x y "_s},
                                    {"typed behind", u"http://a.b <x"_s, u"[http://a.b]x"_s},
                                    {"and ended again", u"http://a.b <c "_s, u"[http://a.bc] "_s},
                                    {"typed before", u"http://a.b ^x"_s, u"x[http://a.b] "_s},
                                    {"typed into", u"http://a.b {{xy"_s, u"[http://a.xyb] "_s},
                                    {"one step of undo", u"http://a.b {{xyZ"_s, u"[http://a.b] "_s},
                                    {"another step", u"http://a.b {{x<yZ"_s, u"[http://a.b] "_s},
                                    {"Return is one", u"http://a.b {{x|ZZ"_s, u"[http://a.xb] "_s},
                                    {"behind a replaced word", u"ab~~x$Z"_s, u"x"_s},
                                    {"divided", u"http://a.b/c {{{$"_s, u"[http://a.b]//c "_s},
                                    {"no address any more", u"http://a.b ^}}}}<<<"_s, u"h://a.b "_s},
                                    {"shortened", u"http://a.bcd {<<"_s, u"[http://a.b] "_s},
                                    {"that taken back", u"http://a.bcd {<Z"_s, u"[http://a.bcd] "_s},
                                    {"Delete taken back", u"http://a.bcd {{>Z"_s, u"[http://a.bcd] "_s},
                                    {"removed", u"http://a.b {<<<<<<<<<<x y "_s, u"x y  "_s}}) {
            const InRow inRow(this, name);
            Typing typing;
            typing.Keys(keys);
            QCOMPARE(typing.Links(), links);
            QTextDocument read;
            ReadRtf(typing.box.TextRTF(), read);
            QCOMPARE(read.toPlainText(), typing.box.Text());
            QCOMPARE(WriteRtf(read), typing.box.TextRTF());
        }
    }

    void linksFollowEveryChange()
    {
        const auto composed = [](Typing& typing) {
            QInputMethodEvent preedit(u"x"_s, {});
            QCoreApplication::sendEvent(&typing.box, &preedit);
        };
        const std::tuple<const char*, int, int, std::function<void(Typing&)>, QString> rows[] = {
            {"composing begins", 11, 3, composed, u"x [http://a.] "_s},
            {"composed", 11, 1, [](Typing& typing) { typing.Commit(u"\u00e9"_s); }, u"x [http://a.\u00e9/c] "_s},
            {"composed on", 11, 1,
             [](Typing& typing) {
                 for (const QString& one : {u"\u00e9"_s, u"\u00e8"_s})
                     typing.Commit(one);
             },
             u"x [http://a.\u00e9\u00e8/c] "_s},
            {"typed over its beginning", 0, 4, [](Typing& typing) { typing.Keys(u"y"_s); }, u"ytp://a.b/c "_s},
            {"a word deleted behind it", 15, 0,
             [](Typing& typing) { QTest::keyClick(&typing.box, Qt::Key_Backspace, Qt::ControlModifier); },
             u"x [http://a.b/]"_s},
            {"corrected", 9, 1, [](Typing& typing) { typing.box.Replace(9, 1, u"d"_s); }, u"x [http://d.b/c] "_s}};
        for (const auto& [name, start, length, change, links] : rows) {
            const InRow inRow(this, name);
            Typing typing;
            typing.Keys(u"x http://a.b/c "_s);
            Select(typing.box, start, length);
            change(typing);
            QCOMPARE(typing.Links(), links);
        }
    }

    void linksFollowADrag()
    {
        TakenFrom box;
        box.SetTextRTF("{\\rtf1 {\\field{\\*\\fldinst HYPERLINK \"http://a.b/c\"}{\\fldrslt http://a.b/c}}}");
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        Select(box, 10, 2);
        const QPoint at = box.viewport()->mapTo(&box, box.cursorRect().center() - QPoint(3, 0));
        QTest::mousePress(box.windowHandle(), Qt::LeftButton, {}, at);
        QTest::mouseMove(box.windowHandle(), at + QPoint(0, 40));
        QTRY_COMPARE(LinksOf(*box.document()), u"[http://a.b]"_s);
        QTest::mouseRelease(box.windowHandle(), Qt::LeftButton, {}, at);
    }

    // Another text than the address stays, and so does the address.
    void linksOfOtherPrograms()
    {
        const QByteArray note = "{\\rtf1{\\colortbl;\\red9\\green8\\blue7;}a {\\field{\\*\\fldinst HYPERLINK "
                                "\"http://a.b/\" \\\\o \"tip\"}{\\fldrslt there}} {\\field{\\*\\fldinst HYPERLINK "
                                "\"javascript:x\"}{\\fldrslt no}}{\\field{\\*\\fldinst HYPERLINK \"http://c.d\"}"
                                "{\\fldrslt\\cf1  own}}\\par}";
        Typing typing;
        RichTextBox& box = typing.box;
        box.SetTextRTF(note);
        QCOMPARE(box.TextRTF(), note);
        const auto formatAt = [&](int position) {
            QTextCursor cursor(box.document());
            cursor.setPosition(position + 1);
            return cursor.charFormat();
        };
        QVERIFY(formatAt(2).fontUnderline() && formatAt(2).foreground().color() != Qt::black);
        QVERIFY(!formatAt(8).fontUnderline());
        QVERIFY(formatAt(12).fontUnderline());
        QCOMPARE(formatAt(12).foreground().color(), QColor(9, 8, 7));
        Select(box, 2, 5);
        QCOMPARE(box.SelUnderline(), false);
        QCOMPARE(box.SelColor(), 0U);
        box.SetSelColor(0xff);
        QCOMPARE(formatAt(2).foreground().color(), QColor(Qt::red));
        box.SetSelColor(0);
        QVERIFY(formatAt(2).foreground().color() == formatAt(3).foreground().color());
        QVERIFY(formatAt(2).foreground().color() != Qt::black);
        box.selectAll();
        box.SetSelUnderline(true);
        QCOMPARE(box.SelUnderline(), true);
        QVERIFY(box.TextRTF().contains("\\ul"));
        box.undo();
        QCOMPARE(box.SelUnderline(), false);
        box.SetSelStart(4);
        typing.Keys(u"x"_s);
        box.moveCursor(QTextCursor::End);
        typing.Keys(u" "_s);
        QCOMPARE(typing.Links(), u"a [thxere>http://a.b/] [no>javascript:x][ own>http://c.d] "_s);
        const QByteArray written = box.TextRTF();
        QVERIFY(written.contains("\"http://a.b/\"") && written.contains("\"javascript:x\""));
        QVERIFY(!written.contains("\\ul") && !written.contains("blue181"));
        QTextDocument read;
        ReadRtf(written, read);
        QCOMPARE(WriteRtf(read), written);
    }

    // They show their address, too: browsers end a host with a stroke and leave its beginning out.
    void linksOfBrowsers()
    {
        for (const auto& [name, text, target, keys, links] : Rows<QString, QString, QString, QString>{
                 {"a stroke", u"http://a.b"_s, u"http://a.b/"_s, u"}}}}}}}}x"_s, u"[http://ax.b]"_s},
                 {"no beginning", u"www.a.bc"_s, u"https://www.a.bc/"_s, u"}}}}}x"_s,
                  u"[www.ax.bc>http://www.ax.bc]"_s},
                 {"unchanged", u"www.a.bc"_s, u"https://www.a.bc/"_s, u"}}}}}}}} "_s,
                  u"[www.a.bc>https://www.a.bc/] "_s},
                 {"another one", u"https://a.b"_s, u"http://a.b"_s, u"}}}}}}}}}x"_s, u"[https://ax.b>http://a.b]"_s},
                 {"another page", u"http://a.b"_s, u"http://a.b/c/"_s, u"}}}}}}}}x"_s,
                  u"[http://ax.b>http://a.b/c/]"_s}}) {
            const InRow inRow(this, name);
            Typing typing;
            const QString field = u"{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"%1\"}{\\fldrslt %2}}}"_s;
            typing.box.SetTextRTF(field.arg(target, text).toLatin1());
            typing.Keys(keys);
            QCOMPARE(typing.Links(), links);
        }
    }

    void pastedAddressesBecomeLinks()
    {
        for (const auto& [name, format, text, links] : Rows<QString, QString, QString>{
                 {"text", u"text/plain"_s, u"x http://a.b.\nwww.c.de"_s,
                  u"see http://x  x [http://a.b]./[www.c.de>http://www.c.de]"_s},
                 {"the rest of a word", u"text/plain"_s, u".y/z"_s, u"see [http://x.y/z]"_s},
                 {"html", u"text/html"_s, u"<a href='http://a.b/'>y</a> http://c.d"_s,
                  u"see http://x[y>http://a.b/] [http://c.d]"_s},
                 {"a note", u"application/x-orrelin-note"_s, u"{\\rtf1  http://a.b}"_s,
                  u"see http://x http://a.b"_s}}) {
            const InRow inRow(this, name);
            Typing typing;
            typing.Keys(u"see http://x"_s);
            if (text.startsWith(u'x')) typing.Keys(u" Z "_s);
            auto* data = new QMimeData;
            if (format == u"text/plain")
                data->setText(text);
            else
                data->setData(format, text.toUtf8());
            QApplication::clipboard()->setMimeData(data);
            typing.box.paste();
            QCOMPARE(typing.Links(), links);
            QVERIFY(!typing.box.TextRTF().contains("\\ul"));
        }
        Typing typing;
        typing.box.SetTextRTF("{\\rtf1 {\\field{\\*\\fldinst HYPERLINK \"http://a.b\"}{\\fldrslt here}}}");
        typing.box.selectAll();
        typing.box.copy();
        const QMimeData& copied = *QApplication::clipboard()->mimeData();
        QCOMPARE(copied.text(), u"here"_s);
        QVERIFY(copied.html().contains(u"<a href=\"http://a.b\""_s));
        QVERIFY(copied.data(u"text/rtf"_s).contains("HYPERLINK \"http://a.b\""));
        auto* html = new QMimeData;
        html->setHtml(copied.html());
        QApplication::clipboard()->setMimeData(html);
        typing.box.paste();
        QCOMPARE(typing.Links(), u"[here>http://a.b]"_s);
        QVERIFY(!typing.box.TextRTF().contains("\\ul") && !typing.box.TextRTF().contains("\\red"));
    }

    void linksAreOpened()
    {
        QList<QUrl> opened;
        bool opens = true;
        links::g_openerOfTest = [&](const QUrl& url) {
            opened += url;
            return opens;
        };
        Typing typing;
        RichTextBox& box = typing.box;
        typing.Keys(u"x http://a.b y"_s);
        const QPoint onLink = typing.At(6), beside = typing.At(0);
        QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, onLink);
        QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::ControlModifier, beside);
        QCOMPARE(opened, QList<QUrl>());
        QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::ControlModifier, onLink);
        QCOMPARE(opened, QList<QUrl>{QUrl(u"http://a.b"_s)});
        QTest::keyClick(&box, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(opened.size(), 2);
        QCOMPARE(box.Text(), u"x http://a.b y"_s);

        const auto pointer = [&](const QPoint& at, Qt::KeyboardModifiers modifiers) {
            QMouseEvent move(QEvent::MouseMove, at, box.viewport()->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                             modifiers);
            QCoreApplication::sendEvent(box.viewport(), &move);
            return box.viewport()->cursor().shape();
        };
        QCOMPARE(pointer(onLink, Qt::NoModifier), Qt::IBeamCursor);
        QCOMPARE(pointer(onLink, Qt::ControlModifier), Qt::PointingHandCursor);
        QCOMPARE(pointer(beside, Qt::ControlModifier), Qt::IBeamCursor);
        QHelpEvent help(QEvent::ToolTip, onLink, box.viewport()->mapToGlobal(onLink));
        QCoreApplication::sendEvent(box.viewport(), &help);
        QCOMPARE(QToolTip::text(), u"<p style='white-space:pre'>http://a.b<br>Ctrl+click to open</p>"_s);

        QString ofMenu;
        connect(&box, &RichTextBox::MouseDown, &box, [&] { ofMenu = box.LinkOfMenu(); });
        for (const auto& [at, link] : {std::pair(onLink, u"http://a.b"_s), {beside, QString()}}) {
            QTest::mouseClick(box.viewport(), Qt::RightButton, {}, at);
            QCOMPARE(ofMenu, link);
        }
        QTest::keyClick(&box, Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(ofMenu, u"http://a.b"_s);

        opens = false;
        AnswerNextBox(msgbox::Ok);
        box.OpenLink(u"http://a.b"_s);
        QTRY_VERIFY(support::g_answers.empty());
        opens = true;
        opened.clear();
        for (const auto& refused : {u"javascript:x"_s, u"file:///bin/sh"_s})
            QVERIFY(!links::Open(refused));
        QCOMPARE(opened, QList<QUrl>());
        QVERIFY(links::Open(u"file://localhost/etc/hosts"_s));
        QCOMPARE(opened, QList<QUrl>{QUrl(u"file:///etc/hosts"_s)});
        links::g_openerOfTest = nullptr;
    }

    void listsGoOn()
    {
        for (const auto& [name, keys, lists] :
             Rows<QString, QString>{{"a dash", u"- a$b"_s, u"_- a/_- b"_s},
                                    {"inserted", u"1. a$b$c{{{{{{{{{{$x"_s, u"_1. a/_2. x/_3. b/_4. c"_s},
                                    {"that taken back", u"1. a$b$c{{{{{{{{{{$Z"_s, u"_1. a/_/_2. b/_3. c"_s},
                                    {"ended there", u"1. a$b$c{{{{{{{{{{$$"_s, u"_1. a//_2. b/_3. c"_s},
                                    {"another list", u"1) a$$2. b${{{{{{{{{$"_s, u"_1) a/_2) /_2. b/_3. "_s},
                                    {"numbers", u"1. a$b$c"_s, u"_1. a/_2. b/_3. c"_s},
                                    {"numbers in brackets", u"1) a$"_s, u"_1) a/_2) "_s},
                                    {"ended", u"- a$$b"_s, u"_- a/b"_s},
                                    {"the end taken back", u"- a$$Z"_s, u"_- a/_- "_s},
                                    {"the mark taken back", u"- a$Z"_s, u"- a/"_s},
                                    {"and typed on", u"- a$Zb$c"_s, u"- a/b/c"_s},
                                    {"the next number typed", u"1. a$Z2. b$c"_s, u"1. a/_2. b/_3. c"_s},
                                    {"the mark removed", u"- a$b^}}<"_s, u"_- a/b"_s},
                                    {"that taken back", u"- a$b^}}<Z"_s, u"_- a/_- b"_s},
                                    {"Backspace in the text", u"- a$bc<"_s, u"_- a/_- b"_s},
                                    {"Backspace behind a typed dash", u"- <"_s, u"-"_s},
                                    {"divided", u"- ab{$"_s, u"_- a/_- b"_s},
                                    {"a line in the item", u"- a|b$c"_s, u"_- a|b/_- c"_s},
                                    {"before the mark", u"- a^$"_s, u"/- a"_s},
                                    {"a mark alone", u"- $x"_s, u"- /x"_s},
                                    {"no lists", u"10:30 Dentist$1.5 km$-5$-$2026. a$a) b$23. c$24. d$x"_s,
                                     u"10:30 Dentist/1.5 km/-5/-/2026. a/a) b/23. c/24. d/x"_s},
                                    {"with a link", u"- http://a.b$x"_s, u"_- http://a.b/_- x"_s}}) {
            const InRow inRow(this, name);
            Typing typing;
            typing.Keys(keys);
            QCOMPARE(typing.Lists(), lists);
            const QByteArray rtf = typing.box.TextRTF();
            typing.box.SetTextRTF(rtf);
            QCOMPARE(typing.Lists(), lists);
            QCOMPARE(WriteRtf(*typing.box.document()), rtf);
        }
        Typing typing;
        typing.Keys(u"- a$b"_s);
        const QByteArray rtf = typing.box.TextRTF();
        typing.box.SetTextRTF(rtf);
        QVERIFY(!typing.box.Modified());
        QCOMPARE(typing.box.TextRTF(), rtf);
        // A wrapped line begins below the text.
        typing.box.moveCursor(QTextCursor::End);
        typing.Keys(u" some words that do not fit into one line of this narrow note"_s);
        const QTextBlock item = typing.box.document()->lastBlock();
        QVERIFY(item.layout()->lineCount() > 1);
        const double text = item.layout()->lineAt(0).cursorToX(2),
                     below = item.layout()->lineAt(1).cursorToX(item.layout()->lineAt(1).textStart());
        QVERIFY2(qAbs(text - below) < 1, qPrintable(u"%1 %2"_s.arg(text).arg(below)));
    }

    void numbersOfOtherPrograms()
    {
        for (const auto& [name, items, keys, lists] : Rows<QString, QString, QString>{
                 {"with zeros", u"01. a/02. b"_s, u"}}}}}$x"_s, u"_01. a/_02. x/_03. b"_s},
                 {"one more digit", u"09. a/10. b"_s, u"}}}}}$x"_s, u"_09. a/_10. x/_11. b"_s},
                 {"one less digit", u"09. a/10. b/11. c"_s, u"}}}}<"_s, u"a/_09. b/_10. c"_s},
                 {"without zeros", u"9. a/10. b"_s, u"}}}<"_s, u"a/_9. b"_s},
                 {"the last one", u"999. a"_s, u"}}}}}}$x"_s, u"_999. a/_x"_s},
                 {"the last one below", u"998. a/999. b"_s, u"}}}}}}$x"_s, u"_998. a/_999. x/_999. b"_s}}) {
            const InRow inRow(this, name);
            Typing typing;
            typing.box.SetTextRTF("{\\rtf1\\fi-100\\li100 " + items.toLatin1().replace('/', "\\par ") + "}");
            typing.Keys(keys);
            QCOMPARE(typing.Lists(), lists);
        }
    }

    // Else it would be stored as more of the picture.
    void textBesideAPictureIsText()
    {
        QApplication::clipboard()->setText(u"p http://a.b"_s);
        const std::initializer_list<std::function<void(Typing&)>> ways{
            [](Typing& typing) { typing.Keys(u"x"_s); }, [](Typing& typing) { typing.Commit(u"\u00e9"_s); },
            [](Typing& typing) { typing.box.paste(); }, [](Typing& typing) { typing.Keys(u"$b"_s); }};
        for (const auto& way : ways) {
            Typing typing;
            typing.Keys(u"- a"_s);
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(Qt::red);
            QTextCursor caret = typing.box.textCursor();
            QVERIFY(InsertPicture(caret, image, {}));
            typing.box.setTextCursor(caret);
            way(typing);
            QCOMPARE(PlainText(typing.box.TextRTF()), typing.box.Text());
        }
    }

    void directions()
    {
        Typing typing;
        RichTextBox& box = typing.box;
        const auto first = [&] { return box.document()->begin(); };
        const auto isAtRight = [&] {
            const QTextLine line = first().layout()->lineAt(0);
            return line.naturalTextRect().center().x() > box.viewport()->width() / 2.0;
        };
        typing.Keys(u"\u05e9\u05dc\u05d5\u05dd"_s);
        QVERIFY(isAtRight());
        QVERIFY(!box.TextRTF().contains("rtlpar"));
        for (const auto& [alignment, word] : {std::pair{0, "\\ql"}, {1, "\\qr"}}) {
            box.SetSelAlignment(alignment);
            QCOMPARE(isAtRight(), alignment == 1);
            const QByteArray rtf = box.TextRTF();
            QVERIFY(rtf.contains(word));
            box.SetTextRTF(rtf);
            QCOMPARE(isAtRight(), alignment == 1);
        }
        box.SetText(u"abc\n- de"_s);
        QVERIFY(!isAtRight());
        box.selectAll();
        typing.PressDirection(RightKey, Qt::Key_Z);
        QVERIFY(!isAtRight() && !box.Modified());
        typing.PressDirection(RightKey);
        QVERIFY(isAtRight());
        QCOMPARE(box.TextRTF().count("\\rtlpar"), 1); // both paragraphs
        const QByteArray rtf = box.TextRTF();
        box.SetTextRTF(rtf);
        QVERIFY(isAtRight() && box.document()->lastBlock().textDirection() == Qt::RightToLeft);
        QCOMPARE(WriteRtf(*box.document()), rtf);
        typing.PressDirection(LeftKey);
        QVERIFY(!isAtRight() && box.TextRTF().contains("\\ltrpar"));
        box.undo();
        QVERIFY(isAtRight() && !box.Modified());
        box.SetLocked(true);
        typing.PressDirection(LeftKey);
        QVERIFY(!box.Modified());

        // A list keeps to the side where its text begins.
        Typing list;
        list.Keys(u"- \u05e9\u05dc\u05d5\u05dd$a"_s);
        for (const QTextBlock& block : {list.box.document()->begin(), list.box.document()->lastBlock()}) {
            QCOMPARE(block.textDirection(), Qt::RightToLeft);
            QVERIFY(block.blockFormat().rightMargin() > 0 && block.blockFormat().leftMargin() == 0);
        }
        QVERIFY(list.box.TextRTF().contains("\\rtlpar"));
        list.box.SetTextRTF("{\\rtf1\\fi-100\\li100 - a}");
        list.Keys(u"}}\u05e9}<"_s);
        QCOMPARE(list.box.Text(), u"- \u05e9"_s);
        QCOMPARE(list.box.document()->begin().textDirection(), Qt::LeftToRight); // where its indent is
        list.Keys(u"ZZ"_s);
        QCOMPARE(list.box.document()->begin().blockFormat().layoutDirection(), Qt::LayoutDirectionAuto);
        for (const auto& [item, key, text] :
             {std::tuple("- ", u"\u05e9"_s, u"- "_s), {"- a\\u1513 ?", u"\x7f"_s, u"- a\u05e9"_s}}) {
            list.box.SetTextRTF(QByteArray("{\\rtf1\\fi-100\\li100 ") + item + "}");
            list.Keys(u"}}"_s);
            QTest::sendKeyEvent(QTest::Click, &list.box, key == u"\x7f" ? Qt::Key_Delete : Qt::Key_unknown, key, {});
            QCOMPARE(list.box.document()->begin().textDirection(), Qt::LeftToRight);
            list.Keys(u"Z"_s);
            QCOMPARE(list.box.Text(), text);
        }
        // Its end leaves only a direction that was set by hand.
        for (const bool isSet : {false, true}) {
            Typing ended;
            ended.Keys(u"- a"_s);
            if (isSet) ended.PressDirection(RightKey);
            ended.Keys(u"$b"_s);
            QCOMPARE(ended.box.TextRTF().contains("\\rtlpar"), isSet);
            QVERIFY(!ended.box.TextRTF().contains("\\ltrpar"));
            ended.Keys(u"$$"_s);
            QCOMPARE(ended.box.document()->lastBlock().blockFormat().layoutDirection(),
                     isSet ? Qt::RightToLeft : Qt::LayoutDirectionAuto);
        }
    }

    // An emoji of several characters is one for Delete, and is stored.
    void anyScriptByAnInputMethod()
    {
        Typing typing;
        RichTextBox& box = typing.box;
        const QString family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s, flag = u"\U0001F1E9\U0001F1EA"_s;
        for (const QString& text : {u"\u65e5\u672c"_s, family, u"\U0001F600"_s, flag, u"http://a.b"_s, u" "_s})
            typing.Commit(text);
        const QString all = u"\u65e5\u672c"_s + family + u"\U0001F600"_s + flag;
        QCOMPARE(typing.Links(), all + u"[http://a.b] "_s);
        QCOMPARE(PlainText(box.TextRTF()), box.Text());
        box.SetSelStart(2);
        QTest::keyClick(&box, Qt::Key_Delete);
        QVERIFY(box.Text().startsWith(u"\u65e5\u672c\U0001F600"_s));
        box.SetSelStart(4);
        QTest::keyClick(&box, Qt::Key_Backspace);
        QVERIFY(box.Text().startsWith(u"\u65e5\u672c"_s + flag));
    }
};

ORRELIN_TEST(NoteTypingTest)
#include "notetypingtest.moc"
