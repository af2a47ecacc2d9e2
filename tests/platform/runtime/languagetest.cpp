#include "platform/runtime/language.h"

#include "platform/runtime/runtimeerror.h"
#include "testmain.h"

#include <QTest>

class LanguageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ValReadsTheNumberAtTheStart_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        const auto row = [](const char* text, double value) {
            QTest::newRow(text) << QString::fromLatin1(text) << value;
        };
        row("", 0);
        row("7/", 7);
        row("  12", 12);
        row("Memo3", 0);
        row("-5x", -5);
        row("- 5", 0);
        row(".5", 0.5);
        row("1.25.7", 1.25);
        row("&H808080", 0x808080);
        row("&HFF&", 0xFF);
        row("&hffff", -1);
        row("&HFFFF&", 0xFFFF);
        row("&H0080FFFF&", 0x80FFFF);
        row("&HZ", 0);
        row("&H123456789AB", 0x12345678);
        row("99999999999999999999999999", 1e26);
    }

    void ValReadsTheNumberAtTheStart()
    {
        QFETCH(QString, text);
        QFETCH(double, value);
        QCOMPARE(Val(text), value);
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
