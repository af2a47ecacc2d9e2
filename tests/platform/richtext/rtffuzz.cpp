// Broken rich text of many kinds, in a bounded number of rounds: nothing may crash or hang, and what was read once
// must be written and read again unchanged.
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

namespace {

// After the manner of edit controls, word processors and converters.
const QByteArray g_corpus[] = {
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\nouicompat\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 "
    "Arial;}{\\f1\\fnil\\fcharset2 "
    "Symbol;}{\\f2\\fnil\\fcharset128 MS Gothic;}}\r\n{\\colortbl "
    ";\\red255\\green0\\blue0;\\red0\\green0\\blue128;}\r\n"
    "{\\*\\generator Any 5;}\\viewkind4\\uc1\\pard\\sa200\\sl276\\slmult1\\lang9\\b\\f0\\fs20 One\\b0\\par\r\n"
    "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-200\\li200 two\\tab\\cf1 "
    "three"
    "\\cf0\\f2\\'93\\'fa\\'96\\'7b\\f0\\u8364?\\par\r\n\\pard\\qc\\tx720\\tqr\\tx1440\\ul four\\ulnone\\line "
    "five\\par\r\n}\r\n\0",
    "{\\rtf1\\adeflang1025\\ansi\\ansicpg1250\\uc1\\adeff0\\deff0\\stshfdbch0{\\fonttbl{\\f0\\froman\\fcharset0\\fprq2{"
    "\\*\\panose "
    "02}Times New Roman{\\*\\falt Times};}{\\f1\\fcharset238 Arial "
    "CE;}}{\\colortbl;\\red0\\green0\\blue0;}{\\stylesheet{\\ql "
    "\\fs24 \\snext0 Normal;}{\\*\\cs10 \\additive "
    "Font;}}{\\*\\listtable{\\list{\\listlevel{\\leveltext\\'02\\'00.;}}}}{\\info"
    "{\\title T}}\\sectd{\\header \\pard h\\par}\\trowd\\cellx100\\intbl{\\rtlch\\af0 \\ltrch\\f1\\fs20 a\\'e1\\cell "
    "b\\cell}{\\row}"
    "\\pard\\itap0{\\field{\\*\\fldinst{HYPERLINK \"u\"}}{\\fldrslt{\\ul\\cf1 link}}}{\\upr{x}{\\*\\ud{\\uc0\\u321 "
    "y}}}\\par}",
    "{\\rtf1\\mac\\uc2 {\\pict\\wmetafile8\\picw2540\\pich1270\\picwgoal1440\\pichgoal720 0100090000\r\n03ff}"
    "{\\object\\objemb\\objw99{\\*\\objclass X}{\\*\\objdata 0105}{\\result{\\pict\\dibitmap0\\bin4 {}\\x}}}"
    "{\\*\\shppict{\\pict\\pngblip 89}}{\\nonshppict{\\pict 00}}{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv{\\pict "
    "01}}}{\\shptxt t\\par}}}"
    "\\super a\\nosupersub\\up6 b\\dn0\\v hidden\\v0\\caps c\\scaps d\\plain\\fs0\\f-1\\cf999\\li-5\\u-10179 "
    "?\\'3f\\u-8704 ??}",
};

// Half the changes fall on what rich text is made of, so that they are not all mere other letters.
QByteArray Mutated(const QByteArray& rtf, QRandomGenerator& random)
{
    static const QByteArray pieces[] = {
        "{",    "}",      "\\",         "\\'",   "\\u",  "\\bin9 ",           "\\*",  "-",         "99999999999",
        "{\\*", "\\par ", "{\\pict 00", "\\f1 ", "\\ud", QByteArray(1, '\0'), "\xff", "{\\object", "\\row "};
    QByteArray mutated = rtf;
    for (int changes = 1 + random.bounded(8); changes > 0 && !mutated.isEmpty(); --changes) {
        const int at = random.bounded(static_cast<int>(mutated.size()));
        switch (random.bounded(4)) {
        case 0:
            mutated[at] = static_cast<char>(random.bounded(256));
            break;
        case 1:
            mutated.remove(at, random.bounded(9));
            break;
        case 2:
            mutated.insert(at, mutated.mid(random.bounded(static_cast<int>(mutated.size())), random.bounded(60)));
            break;
        default:
            mutated.insert(at, pieces[random.bounded(static_cast<int>(std::size(pieces)))]);
        }
    }
    return mutated;
}

// The bytes as well as the text: what is read is exactly what is written.
bool IsStable(const QByteArray& rtf)
{
    QTextDocument first, second;
    ReadRtf(rtf, first);
    const QByteArray written = WriteRtf(first);
    ReadRtf(written, second);
    return second.toRawText() == first.toRawText() && WriteRtf(second) == written;
}

} // namespace

class RtfFuzz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CutAtEveryByte()
    {
        for (const QByteArray& rtf : g_corpus)
            for (qsizetype length = 0; length <= rtf.size(); ++length) {
                const QByteArray cut = rtf.first(length);
                QVERIFY2(IsStable(cut), cut.toPercentEncoding(" {}\\"));
            }
    }

    void ChangedAtRandom_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 4; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void ChangedAtRandom()
    {
        constexpr int rounds = 1000;
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        for (int round = 0; round < rounds; ++round) {
            const QByteArray rtf = Mutated(g_corpus[random.bounded(static_cast<int>(std::size(g_corpus)))], random);
            QVERIFY2(IsStable(rtf), rtf.toPercentEncoding(" {}\\"));
            QTextDocument document;
            document.setPlainText(QStringLiteral("in"));
            QTextCursor cursor(&document);
            cursor.setPosition(1);
            InsertRtf(rtf, cursor);
            document.undo();
            QCOMPARE(document.toRawText(), QStringLiteral("in"));
        }
    }

    void NoiseIsRead()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            QByteArray noise(random.bounded(2000), '\0');
            for (char& byte : noise)
                byte = static_cast<char>(random.generate());
            QVERIFY(IsStable("{\\rtf1" + noise));
            QTextDocument document;
            ReadRtf(noise, document);
        }
    }
};

QTEST_MAIN(RtfFuzz)
#include "rtffuzz.moc"
