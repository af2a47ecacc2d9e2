// Single texts and values of old planners: their stored forms, and invalid bytes.
#include "jet3file.h"
#include "platform/engine/jet/jetstream.h"
#include "platform/engine/jet/jetvalues.h"
#include "testmain.h"

#include <QDateTime>

namespace {
const QByteArray Missing = "none";
}

class JetTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AMemoComesThrough()
    {
        const QByteArray rich = "{\\rtf1\\ansi \xCF\xF0\\'e8 \x81 end}";
        // codePage: 0 for 16 bits
        const std::tuple<const char*, int, QByteArray, QByteArray> rows[] = {
            {"Western", 1252, "caf\xE9 \x80", "café €"},
            {"Central Europe", 1250, "\x9Elu\x9Do", "žluťo"},
            {"Cyrillic", 1251, "\xCF\xF0\xE8", "При"},
            {"Japanese", 932, "\x93\xFA\x96\x7B", "日本"},
            {"Thai", 874, "\xA1", "ก"},
            {"DOS", 850, "\x82", "é"},
            {"an unknown page", 12, "\xE9", Missing},
            {"an unknown page, plain", 12, "e", "e"},
            {"not of the page", 932, "\x93\xFA\x96\x20", Missing},
            {"half a Japanese letter", 932, "\x93\xFA\x96", Missing},
            {"rich text of bytes", 1250, rich, rich},
            {"pairs", 0, Wide(u"žluť 😀"_s), "žluť 😀"},
            {"shortened", 0,
             QByteArray("\xFF\xFE"
                        "caf\xE9\0\x7E\x01\0z",
                        11),
             "caféžz"},
            {"nothing", 0, "", ""},
            {"nothing, shortened", 0, "\xFF\xFE", ""},
            // The engine had decoded the control's bytes as Western. Characters outside that page become escapes of
            // rich text.
            {"rich text of pairs", 0, Wide(u"{\\rtf1\\ansi Ïð\\'e8 \u0081 end}"_s), rich},
            {"rich text beyond the page", 0, Wide(u"{\\rtf1 é日😀}"_s), "{\\rtf1 \xE9\\u26085?\\u-10179?\\u-8704?}"},
            {"half a pair", 0, "abc", Missing},
            {"half a pair, shortened", 0,
             QByteArray("\xFF\xFE"
                        "a\0b",
                        5),
             Missing},
        };
        for (const auto& [name, codePage, bytes, memo] : rows) {
            const InRow inRow(this, name);
            const JetEncoding encoding{codePage == 0, codePage == 0 ? 1252 : codePage};
            QCOMPARE(DecodeJetMemo(bytes, encoding).value_or(Missing), memo);
        }
    }

    void AValueComesThrough()
    {
        const auto moment = [](int year, int month, int day, int hour) {
            return QVariant(QDateTime(QDate(year, month, day), QTime(hour, 0)));
        };
        using namespace jetstream;
        // value: null if the bytes are invalid
        const std::tuple<const char*, int, QByteArray, int, QVariant> rows[] = {
            {"true", Boolean, "\1", dbBoolean, QVariant(true)},
            {"byte", Byte, "\xFF", dbLong, QVariant(255)},
            {"integer", Integer, LittleEndian<qint16>(-2), dbLong, QVariant(-2)},
            {"long", Long, LittleEndian<qint32>(1 << 30), dbLong, QVariant(1 << 30)},
            {"single", Single, LittleEndian(8.25f), dbSingle, QVariant(8.25f)},
            {"double", Double, LittleEndian(8.25), dbSingle, QVariant(8.25f)},
            {"money", Money, LittleEndian<qint64>(82500), dbSingle, QVariant(8.25f)},
            {"date", Date, LittleEndian(36526.75), dbDate, moment(2000, 1, 1, 18)},
            {"an early date", Date, LittleEndian(-1.25), dbDate, moment(1899, 12, 29, 6)},
            {"no date", Date, LittleEndian(1e300), dbDate, QVariant()},
            {"not a number", Date, LittleEndian(qQNaN()), dbDate, QVariant()},
            {"half a number", Long, LittleEndian<qint16>(1), dbLong, QVariant()},
            {"text", Text, "12345", dbText, QVariant(u"12345"_s)},
            {"too long", Text, "123456", dbText, QVariant()},
            {"words for a number", Text, "many", dbLong, QVariant()},
            {"text for a memo", Text, "\xE9", dbMemo, QVariant(QByteArray("é"))},
            {"an unknown type", 99, "x", dbText, QVariant()},
        };
        for (const auto& [name, type, bytes, field, value] : rows) {
            const InRow inRow(this, name);
            const auto decoded = jetvalues::Decode({{}, type, 0}, bytes, {false, 1252}, {{}, FieldType(field), 5});
            QCOMPARE(decoded.has_value(), value.isValid());
            if (decoded) QCOMPARE(*decoded, value);
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(JetTextTest)
#include "jettexttest.moc"
