#include "printing/pagesetupform.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

// The page setup dialog and the keys of section PAGESETUP.
class PageSetupTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<TemporaryFolders> m_folders;

    static void SetSeparator(const QString& separator)
    {
        WritePrivateProfileStringA(u"intl"_s, u"sDecimal"_s, separator, u"WIN.INI"_s);
    }
    static QLineEdit& Box(QWidget& form, const char* name) { return In<QLineEdit>(form, name); }
    static void Show(PageSetupForm& form)
    {
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
    }

private Q_SLOTS:
    void init() { m_folders = std::make_unique<TemporaryFolders>(); }
    void cleanup()
    {
        DropAnswers();
        m_folders.reset();
    }

    void okWritesWhatWasTyped()
    {
        SetSeparator(u","_s);
        SetIni("PAGESETUP", "HEADERCOLOR", "&HFF0000&"); // blue
        SetIni("PAGESETUP", "HEADERITALIC", "-1");
        SetIni("PAGESETUP", "HEADERSIZE", "10.5");
        PageSetupForm form;
        Show(form);
        QCOMPARE(Box(form, "tbHeader").palette().color(QPalette::Text), QColor(Qt::blue));
        Box(form, "tbHeader").setFocus();
        QTest::keyClicks(&Box(form, "tbHeader"), u"Our year"_s);
        QTest::keyClick(&Box(form, "tbHeader"), Qt::Key_Return);
        for (const auto& [name, typed] : {std::pair("tbLeft", u"narrow"_s), {"tbRight", u"wide"_s}}) {
            QTest::mouseClick(&Box(form, name), Qt::LeftButton);
            QCOMPARE(Box(form, name).selectedText(), u"1,00"_s);
            QTest::keyClicks(&Box(form, name), typed);
            QTest::keyClick(&Box(form, name), Qt::Key_Enter);
        }
        QVERIFY(form.isVisible());
        QCOMPARE(Ini("PAGESETUP", "LEFT"), u"none"_s);
        Press(form, "btnOk");
        QVERIFY(!form.isVisible());
        const std::pair<const char*, const char*> wanted[] = {{"LEFT", "narrow"},     {"TOP", "1,00"},
                                                              {"RIGHT", "wide"},      {"BOTTOM", "1,00"},
                                                              {"HEADER", "Our year"}, {"HEADERFONT", "Arial"},
                                                              {"HEADERBOLD", "-1"},   {"HEADERITALIC", "-1"},
                                                              {"HEADERSIZE", "10.5"}, {"HEADERCOLOR", "&HFF0000&"}};
        for (const auto& [key, value] : wanted)
            QCOMPARE(Ini("PAGESETUP", key), QString::fromLatin1(value));
    }

    void fontsAreShownAndKeptByOkAlone()
    {
        for (const auto& [what, button, size] :
             Rows<QByteArray, QString>{{"ok", "btnOk", u"20"_s}, {"cancel", "btnCancel", u"14"_s}}) {
            const InRow row(this, what);
            SetIni("PAGESETUP", "HEADERFONT", "Never Installed");
            SetIni("PAGESETUP", "HEADERSIZE", "14");
            PageSetupForm form;
            Show(form);
            for (int time = 0; time < 2; ++time) { // reads the keys each time
                AnswerFontDialog([](QFontDialog& dialog) {
                    QCOMPARE(dialog.currentFont().pointSize(), 14);
                    ChooseSize(dialog, 20);
                });
                Press(form, "btnFonts");
                QCOMPARE(Box(form, "tbHeader").font().pointSize(), 20);
                QCOMPARE(Ini("PAGESETUP", "HEADERSIZE"), u"14"_s);
            }
            Press(form, button.constData());
            QCOMPARE(Ini("PAGESETUP", "HEADERSIZE"), size);
            QCOMPARE(Ini("PAGESETUP", "HEADERFONT"), u"Never Installed"_s);
        }
    }

    void theCommandNeedsNoPlanner()
    {
        Program program;
        program.Start();
        program.InWindow<PageSetupForm>("mnuPageSetup", [](PageSetupForm& form) {
            const QLineEdit& header = Box(form, "tbHeader"); // the default of a first run
            QVERIFY(header.font().pointSize() == 12 && header.font().bold() && !header.font().italic());
            QCOMPARE(header.palette().color(QPalette::Text), QColor(Qt::black));
            QTest::keyClicks(&Box(form, "tbHeader"), u"dropped"_s);
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        QCOMPARE(Ini("PAGESETUP", "HEADER"), u"none"_s);
    }
};

ORRELIN_TEST(PageSetupTest)
#include "pagesetuptest.moc"
