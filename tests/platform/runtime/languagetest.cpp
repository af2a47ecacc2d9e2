#include "platform/runtime/language.h"

#include "platform/runtime/runtimeerror.h"
#include "testmain.h"

class LanguageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ValReadsTheNumberAtTheStart()
    {
        const std::pair<QString, double> rows[] = {
            {u""_s, 0},
            {u"7/"_s, 7},
            {u"  12"_s, 12},
            {u"Memo3"_s, 0},
            {u"-5x"_s, -5},
            {u"- 5"_s, 0},
            {u".5"_s, 0.5},
            {u"1.25.7"_s, 1.25},
            {u"&H808080"_s, 0x808080},
            {u"&HFF&"_s, 0xFF},
            {u"&hffff"_s, -1},
            {u"&HFFFF&"_s, 0xFFFF},
            {u"&H0080FFFF&"_s, 0x80FFFF},
            {u"&HZ"_s, 0},
            {u"&H123456789AB"_s, 0x12345678},
            {u"99999999999999999999999999"_s, 1e26},
        };
        for (const auto& [text, value] : rows) {
            const InRow inRow(this, text);
            QCOMPARE(Val(text), value);
        }
    }

    void IntegersThatDoNotFitAreAnOverflow()
    {
        QCOMPARE(IntegerOf(u"32767"), std::int16_t{32767});
        QCOMPARE(IntegerOf(u"1e9"), std::int16_t{1});
        QVERIFY_EXCEPTION_THROWN(IntegerOf(u"32768"), RunTimeError);
        QVERIFY_EXCEPTION_THROWN(IntegerOf(u"-32769"), RunTimeError);
        QVERIFY_EXCEPTION_THROWN(IntegerOf(QString(400, u'9')), RunTimeError);
    }

    void StrKeepsTheBlankOfTheSign()
    {
        QCOMPARE(Str(12), u" 12"_s);
        QCOMPARE(Str(-3), u"-3"_s);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(LanguageTest)
#include "languagetest.moc"
