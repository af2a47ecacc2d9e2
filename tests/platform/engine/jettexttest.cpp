// Single texts and values of old planners: the ways in which they lie there, and bytes that are none.
#include "jet3file.h"
#include "platform/engine/jet/jetstream.h"
#include "platform/engine/jet/jetvalues.h"
#include "testmain.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QByteArray Missing = "none";
}

class JetTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AMemoComesThrough_data()
    {
        QTest::addColumn<int>("codePage"); // 0 for 16 bits
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("memo");
        const QByteArray rich = "{\\rtf1\\ansi \xCF\xF0\\'e8 \x81 end}";
        QTest::newRow("Western") << 1252 << QByteArray("caf\xE9 \x80") << QByteArray("café €");
        QTest::newRow("Central Europe") << 1250 << QByteArray("\x9Elu\x9Do") << QByteArray("žluťo");
        QTest::newRow("Cyrillic") << 1251 << QByteArray("\xCF\xF0\xE8") << QByteArray("При");
        QTest::newRow("Japanese") << 932 << QByteArray("\x93\xFA\x96\x7B") << QByteArray("日本");
        QTest::newRow("Thai") << 874 << QByteArray("\xA1") << QByteArray("ก");
        QTest::newRow("DOS") << 850 << QByteArray("\x82") << QByteArray("é");
        QTest::newRow("an unknown page") << 12 << QByteArray("\xE9") << Missing;
        QTest::newRow("an unknown page, plain") << 12 << QByteArray("e") << QByteArray("e");
        QTest::newRow("not of the page") << 932 << QByteArray("\x93\xFA\x96\x20") << Missing;
        QTest::newRow("half a Japanese letter") << 932 << QByteArray("\x93\xFA\x96") << Missing;
        QTest::newRow("rich text of bytes") << 1250 << rich << rich;
        QTest::newRow("pairs") << 0 << Wide(u"žluť 😀"_s) << QByteArray("žluť 😀");
        QTest::newRow("shortened") << 0
                                   << QByteArray("\xFF\xFE"
                                                 "caf\xE9\0\x7E\x01\0z",
                                                 11)
                                   << QByteArray("caféžz");
        QTest::newRow("nothing") << 0 << QByteArray("") << QByteArray("");
        QTest::newRow("nothing, shortened") << 0 << QByteArray("\xFF\xFE") << QByteArray("");
        // The control's bytes had been taken for Western ones; what that page lacks is told in the text's own way.
        QTest::newRow("rich text of pairs") << 0 << Wide(u"{\\rtf1\\ansi Ïð\\'e8 \u0081 end}"_s) << rich;
        QTest::newRow("rich text beyond the page")
            << 0 << Wide(u"{\\rtf1 é日😀}"_s) << QByteArray("{\\rtf1 \xE9\\u26085?\\u-10179?\\u-8704?}");
        QTest::newRow("half a pair") << 0 << QByteArray("abc") << Missing;
        QTest::newRow("half a pair, shortened") << 0
                                                << QByteArray("\xFF\xFE"
                                                              "a\0b",
                                                              5)
                                                << Missing;
    }

    void AMemoComesThrough()
    {
        QFETCH(int, codePage);
        QFETCH(QByteArray, bytes);
        const JetEncoding encoding{codePage == 0, codePage == 0 ? 1252 : codePage};
        QTEST(DecodeJetMemo(bytes, encoding).value_or(Missing), "memo");
    }

    void AValueComesThrough_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("field");
        QTest::addColumn<QVariant>("value"); // invalid where there is none
        const auto moment = [](int year, int month, int day, int hour) {
            return QVariant(QDateTime(QDate(year, month, day), QTime(hour, 0)));
        };
        using namespace jetstream;
        QTest::newRow("true") << int(Boolean) << QByteArray("\1") << int(dbBoolean) << QVariant(true);
        QTest::newRow("byte") << int(Byte) << QByteArray("\xFF") << int(dbLong) << QVariant(255);
        QTest::newRow("integer") << int(Integer) << LittleEndian<qint16>(-2) << int(dbLong) << QVariant(-2);
        QTest::newRow("long") << int(Long) << LittleEndian<qint32>(1 << 30) << int(dbLong) << QVariant(1 << 30);
        QTest::newRow("single") << int(Single) << LittleEndian(8.25f) << int(dbSingle) << QVariant(8.25f);
        QTest::newRow("double") << int(Double) << LittleEndian(8.25) << int(dbSingle) << QVariant(8.25f);
        QTest::newRow("money") << int(Money) << LittleEndian<qint64>(82500) << int(dbSingle) << QVariant(8.25f);
        QTest::newRow("date") << int(Date) << LittleEndian(36526.75) << int(dbDate) << moment(2000, 1, 1, 18);
        QTest::newRow("an early date") << int(Date) << LittleEndian(-1.25) << int(dbDate) << moment(1899, 12, 29, 6);
        QTest::newRow("no date") << int(Date) << LittleEndian(1e300) << int(dbDate) << QVariant();
        QTest::newRow("not a number") << int(Date) << LittleEndian(qQNaN()) << int(dbDate) << QVariant();
        QTest::newRow("half a number") << int(Long) << LittleEndian<qint16>(1) << int(dbLong) << QVariant();
        QTest::newRow("text") << int(Text) << QByteArray("12345") << int(dbText) << QVariant(u"12345"_s);
        QTest::newRow("too long") << int(Text) << QByteArray("123456") << int(dbText) << QVariant();
        QTest::newRow("words for a number") << int(Text) << QByteArray("many") << int(dbLong) << QVariant();
        QTest::newRow("text for a memo") << int(Text) << QByteArray("\xE9") << int(dbMemo) << QVariant(QByteArray("é"));
        QTest::newRow("an unknown type") << 99 << QByteArray("x") << int(dbText) << QVariant();
    }

    void AValueComesThrough()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, bytes);
        QFETCH(int, field);
        QFETCH(QVariant, value);
        const auto decoded = jetvalues::Decode({{}, type, 0}, bytes, {false, 1252}, {{}, FieldType(field), 5});
        QCOMPARE(decoded.has_value(), value.isValid());
        if (decoded) QCOMPARE(*decoded, value);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(JetTextTest)
#include "jettexttest.moc"
