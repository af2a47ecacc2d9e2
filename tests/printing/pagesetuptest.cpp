#include "printing/pagesetupform.h"
#include "program.h"
#include "settingsfile.h"

// The page setup dialog over the keys of section PAGESETUP.
class PageSetupTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<TemporaryFolders> m_folders;

    static void SetSeparator(const QString& separator)
    {
        WritePrivateProfileStringA(QStringLiteral("intl"), QStringLiteral("sDecimal"), separator,
                                   QStringLiteral("WIN.INI"));
    }
    static QLineEdit& Box(QWidget& form, const char* name) { return In<QLineEdit>(form, name); }
    static void Press(QWidget& form, const char* name)
    {
        QTest::keyClick(&In<QPushButton>(form, name), Qt::Key_Return);
    }
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

    void withoutKeysThereAreDefaults()
    {
        SetSeparator(QStringLiteral(","));
        PageSetupForm form;
        QCOMPARE(form.windowTitle(), QStringLiteral("Customize Page Setup"));
        for (const char* name : {"tbLeft", "tbTop", "tbRight", "tbBottom"})
            QCOMPARE(Box(form, name).text(), QStringLiteral("1,00"));
        const QLineEdit& header = Box(form, "tbHeader");
        QCOMPARE(header.text(), QString());
        QCOMPARE(header.font().family(), QStringLiteral("Arial"));
        QVERIFY(header.font().bold() && !header.font().italic());
        QCOMPARE(header.font().pointSizeF(), 12.0);
        QCOMPARE(header.palette().color(QPalette::Text), QColor(Qt::black));
    }

    void okWritesWhatWasTyped()
    {
        SetSeparator(QStringLiteral("."));
        SetIni("PAGESETUP", "HEADERCOLOR", "&HFF0000&"); // blue
        SetIni("PAGESETUP", "HEADERITALIC", "-1");
        SetIni("PAGESETUP", "HEADERSIZE", "10.5");
        PageSetupForm form;
        Show(form);
        QCOMPARE(Box(form, "tbHeader").palette().color(QPalette::Text), QColor(Qt::blue));
        Box(form, "tbHeader").setFocus();
        QTest::keyClicks(&Box(form, "tbHeader"), QStringLiteral("Our year"));
        QTest::keyClick(&Box(form, "tbHeader"), Qt::Key_Return);
        for (const char* name : {"tbLeft", "tbRight"}) {
            QTest::mouseClick(&Box(form, name), Qt::LeftButton);
            QCOMPARE(Box(form, name).selectedText(), QStringLiteral("1.00"));
            QTest::keyClicks(&Box(form, name), QStringLiteral("narrow"));
            QTest::keyClick(&Box(form, name), Qt::Key_Enter);
        }
        QVERIFY(form.isVisible());
        QCOMPARE(Ini("PAGESETUP", "LEFT"), QStringLiteral("none"));
        Press(form, "btnOk");
        QVERIFY(!form.isVisible());
        const std::pair<const char*, const char*> wanted[] = {{"LEFT", "narrow"},     {"TOP", "1.00"},
                                                              {"RIGHT", "narrow"},    {"BOTTOM", "1.00"},
                                                              {"HEADER", "Our year"}, {"HEADERFONT", "Arial"},
                                                              {"HEADERBOLD", "-1"},   {"HEADERITALIC", "-1"},
                                                              {"HEADERSIZE", "10.5"}, {"HEADERCOLOR", "&HFF0000&"}};
        for (const auto& [key, value] : wanted)
            QCOMPARE(Ini("PAGESETUP", key), QString::fromLatin1(value));
    }

    void fontsAreShownAndKeptByOkAlone_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QString>("size");
        QTest::newRow("ok") << QByteArray("btnOk") << QStringLiteral("20");
        QTest::newRow("cancel") << QByteArray("btnCancel") << QStringLiteral("14");
    }

    void fontsAreShownAndKeptByOkAlone()
    {
        QFETCH(const QByteArray, button);
        QFETCH(const QString, size);
        SetIni("PAGESETUP", "HEADERFONT", "Never Installed");
        SetIni("PAGESETUP", "HEADERSIZE", "14");
        PageSetupForm form;
        Show(form);
        for (int time = 0; time < 2; ++time) { // filled from the keys each time
            AnswerFontDialog([](QFontDialog& dialog) {
                QCOMPARE(dialog.currentFont().pointSize(), 14);
                ChooseSize(dialog, 20);
            });
            Press(form, "btnFonts");
            QCOMPARE(Box(form, "tbHeader").font().pointSize(), 20);
            QCOMPARE(Ini("PAGESETUP", "HEADERSIZE"), QStringLiteral("14"));
        }
        Press(form, button.constData());
        QCOMPARE(Ini("PAGESETUP", "HEADERSIZE"), size);
        QCOMPARE(Ini("PAGESETUP", "HEADERFONT"), QStringLiteral("Never Installed"));
    }

    void theCommandNeedsNoPlanner()
    {
        Program program;
        program.Start();
        OnNextModal<PageSetupForm>([](PageSetupForm& form) {
            QTest::keyClicks(&Box(form, "tbHeader"), QStringLiteral("dropped"));
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        program.Trigger("mnuPageSetup");
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(Ini("PAGESETUP", "HEADER"), QStringLiteral("none"));
    }
};

QTEST_MAIN(PageSetupTest)
#include "pagesetuptest.moc"
