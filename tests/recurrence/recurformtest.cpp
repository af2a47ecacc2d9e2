#include "recurrence/recurform.h"

#include "failingstore.h"
#include "openedcalendar.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/picturebutton.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QColorDialog>
#include <QComboBox>
#include <QLabel>

// The window of recurring events, by real keys and clicks; today is 17 March 1999.
class RecurFormTest : public QObject
{
    Q_OBJECT

    static constexpr const char* TakesANumber = "Please choose how many days, weeks, months or years, 1 or more";
    std::unique_ptr<Program> m_program;

    void InWindow(const std::function<void(RecurForm&)>& act) { m_program->InWindow("mnuRecurse", act); }

    static void TypeDate(RecurForm& form, const char* name, const QString& digits)
    {
        auto& box = In<MaskEdBox>(form, name);
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, digits);
    }

    // Types dates as digits in the box's order; an empty one keeps the box's date.
    static void Fill(RecurForm& form, const QString& start, const QString& until, int method, const QString& text)
    {
        if (!start.isEmpty()) TypeDate(form, "maskStartDate", start);
        if (!until.isEmpty()) TypeDate(form, "maskUntil", until);
        if (method >= 0) In<QRadioButton>(form, qPrintable(u"opMethod(%1)"_s.arg(method))).click();
        QTest::keyClicks(&In<RichTextBox>(form, "tbRecurse"), text);
    }

    void Enter(const QString& start, const QString& until, int method, const QString& text)
    {
        InWindow([=](RecurForm& form) {
            Fill(form, start, until, method, text);
            Press(form, "btnOk");
            QVERIFY(!form.isVisible());
        });
    }

    static void Hold(RecurForm& form) { QTest::mousePress(&In<PictureButton>(form, "picRightSpin"), Qt::LeftButton); }
    static void Release(RecurForm& form)
    {
        QTest::mouseRelease(&In<PictureButton>(form, "picRightSpin"), Qt::LeftButton);
    }

    // The shown record: its dates, the number of its method and its text.
    static QString Shown(RecurForm& form)
    {
        QString text = In<MaskEdBox>(form, "maskStartDate").Text() + u' ' + In<MaskEdBox>(form, "maskUntil").Text();
        for (int i = 0; i < 5; ++i)
            if (In<QRadioButton>(form, qPrintable(u"opMethod(%1)"_s.arg(i))).isChecked()) text += u" %1"_s.arg(i);
        return text + u' ' + In<RichTextBox>(form, "tbRecurse").Text();
    }
    static QString Days(RecurForm& form) { return In<QLabel>(form, "lblDays").text().section(u'\n', 0, 0); }
    static QString Label(RecurForm& form) { return In<QLabel>(form, "lblNextRecord").text(); }

    QString TextOf(const QString& key) const { return PlainText(m_program->Stored(u"notes.mdb"_s, key)); }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        SetDateOrder(0);
        m_program->New(u"notes.mdb"_s);
    }

    void cleanup()
    {
        QCOMPARE(WaitingAnswers(), 0);
        m_program.reset();
    }

    void WritesAnEvent()
    {
        SetDateOrder(2);
        const QString start = u"1999/03/09"_s;
        m_program->Type(m_program->CellOf(16), u"already here"_s);
        m_program->Click(m_program->CellOf(9));
        OnNextModal<RecurForm>([&](RecurForm& form) {
            QCOMPARE(In<MaskEdBox>(form, "maskStartDate").Text(), start);
            QVERIFY(!In<MaskEdBox>(form, "maskUntil").Text().contains(u'9'));
            QCOMPARE(In<QLabel>(form, "lblDateFormat(1)").text(), u"YYYY/MM/DD"_s);
            QVERIFY(!In<PictureButton>(form, "picRightSpin").isEnabled());
            QVERIFY(!In<QPushButton>(form, "btnDelete").isEnabled());
            Fill(form, {}, u"19990322"_s, -1, u"Rent"_s);
            Activate(form);
            PickDate(In<MaskEdBox>(form, "maskUntil"), Qt::Key_Right);
            QCOMPARE(In<MaskEdBox>(form, "maskUntil").Text(), u"1999/03/23"_s);
            auto& day = In<QRadioButton>(form, "opMethod(0)");
            day.setFocus();
            QTest::keyClick(&day, Qt::Key_Right); // while no method is chosen
            QTest::keyClick(&In<MaskEdBox>(form, "maskUntil"), Qt::Key_Return);
            QVERIFY(!form.isVisible());
        });
        QTest::mouseClick(&m_program->Find<PictureButton>("picRecurse"), Qt::LeftButton);
        QCOMPARE(TextOf(u"1999/3/9"_s) + TextOf(u"1999/3/23"_s) + TextOf(u"1999/3/30"_s), u"RentRent"_s);
        QCOMPARE(TextOf(u"1999/3/16"_s), u"already here\nRent"_s);
        QCOMPARE(m_program->Box(m_program->CellOf(16)).Text(), u"already here\nRent"_s);
        QVERIFY(!QGuiApplication::overrideCursor());
        // Reopened, the window shows the event and removes it. The caret stayed in its day.
        m_program->Activate();
        InWindow([&](RecurForm& form) {
            QCOMPARE(In<MaskEdBox>(form, "maskStartDate").Text(), start);
            Hold(form), Release(form);
            QVERIFY(Shown(form).startsWith(start));
            AnswerNextBox(msgbox::Yes);
            Press(form, "btnDelete");
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(TextOf(u"1999/3/16"_s), u"already here\n"_s);
        QCOMPARE(m_program->Box(m_program->CellOf(9)).Text(), QString());
        QVERIFY(g_rsRecurse.EOF_() && g_rsRecurse.BOF());
    }

    void StaysOpenAndSaysWhy()
    {
        const struct
        {
            const char *start, *until;
            int method;
            const char *message, *text = "x", *number = "1";
        } refused[] = {{"", "03011999", 0, "Start Date is not a valid date"},
                       {"02291999", "03011999", 0, "Start Date is not a valid date"},
                       {"03011999", "13011999", 0, "End Date is not a valid date"},
                       {"02011999", "02291999", 3, "End Date is not a valid date"},
                       // Without a method: a year of three digits would be written day by day.
                       {"202/11/24", "1999/11/24", -1, "Start Date is not a valid date"},
                       {"1999/11/24", "202/11/24", -1, "End Date is not a valid date"},
                       {"03011999", "02281999", 0, "The Ending Date is earlier than Starting Date"},
                       {"03011999", "03011999", -1, "Please select a recurring method (Day, Week, Month or Year)"},
                       {"03011999", "03011999", 0, "Recurring event cannot be empty", ""},
                       {"03011999", "03011999", 4, "Recurring event cannot be empty", ""},
                       {"03011999", "03011999", 4, TakesANumber, "x", "0"},
                       {"03011999", "03011999", 4, TakesANumber, "x", "-3"},
                       {"03011999", "03011999", 4, TakesANumber, "x", ""},
                       {"03011999", "03011999", 4, TakesANumber, "x", "99999"},
                       {"01311999", "12311999", 4,
                        "Counted in steps of 30 days, this recurring event would end at Feb 30, 1999", "x", "30"}};
        for (const auto& entry : refused) {
            const InRow row(this, entry.message);
            const QString start = QString::fromLatin1(entry.start), message = QString::fromLatin1(entry.message);
            if (start.contains(u'/')) SetDateOrder(2);
            g_iCurrentPanel = 35; // a memo cell has no date
            const bool isAsked = message.startsWith(u"Counted"_s);
            SeenBox seen;
            InWindow([&](RecurForm& form) {
                Fill(form, start, QString::fromLatin1(entry.until), entry.method, QString::fromLatin1(entry.text));
                In<QComboBox>(form, "cmbRecurDays").setEditText(QString::fromLatin1(entry.number));
                const bool hasDays = isAsked || *entry.text == 0;
                QCOMPARE(Days(form) == u"Nothing to write yet. "_s + message + u'.', !hasDays);
                QCOMPARE(Days(form).startsWith(u"Every"_s), hasDays);
                AnswerNextBox(isAsked ? msgbox::No : msgbox::Ok, &seen);
                Press(form, "btnOk");
                QVERIFY(form.isVisible());
                Press(form, "btnCancel");
            });
            QVERIFY2(seen.Text.startsWith(message), qPrintable(seen.Text));
            QCOMPARE(seen.Icon == QMessageBox::Question, isAsked);
            QVERIFY(g_rsRecurse.EOF_());
            QVERIFY(m_program->Stored(u"notes.mdb"_s, u"1999/3/1"_s).isNull());
        }
    }

    void EveryOtherWeekIsKeptAsAWeek()
    {
        InWindow([](RecurForm& form) {
            Fill(form, u"03011999"_s, u"03291999"_s, 4, u"Bins"_s);
            In<QComboBox>(form, "cmbRecurDays").setEditText(u"2"_s);
            auto& units = In<QComboBox>(form, "cmbRecurSpecial");
            QCOMPARE(units.currentText(), u"Day(s)"_s);
            QTest::keyClick(&units, Qt::Key_Down);
            QCOMPARE(Days(form), u"Every 2 weeks: 3 days, from Mar 1, 1999 to Mar 29, 1999."_s);
            TypeDate(form, "maskUntil", u"03281999"_s);
            QCOMPARE(Days(form), u"Every 2 weeks: 2 days, from Mar 1, 1999 to Mar 15, 1999."_s);
            In<QRadioButton>(form, "opMethod(3)").click();
            QCOMPARE(Days(form), u"Every year: 1 day, Mar 1, 1999."_s);
            In<QRadioButton>(form, "opMethod(4)").click();
            TypeDate(form, "maskUntil", u"03291999"_s);
            Press(form, "btnOk");
        });
        QCOMPARE(TextOf(u"1999/3/1"_s) + TextOf(u"1999/3/15"_s) + TextOf(u"1999/3/29"_s), u"BinsBinsBins"_s);
        QCOMPARE(TextOf(u"1999/3/8"_s), QString());
        InWindow([](RecurForm& form) {
            Hold(form);
            QCOMPARE(Shown(form), u"03/01/1999 03/29/1999 1 Bins"_s);
            Release(form);
            QTest::keyClick(&form, Qt::Key_Escape);
        });
    }

    void GoesThroughTheEventsOnceAndDeletesTheOneThatIsShown()
    {
        // Keys sort as texts: September, March, December.
        const QString december = u"12/01/1999 12/01/1999 0 December"_s;
        const QString september = u"09/01/1999 09/01/1999 3 September"_s;
        Enter(u"12011999"_s, u"12011999"_s, 0, u"December"_s);
        Enter(u"09011999"_s, u"09011999"_s, 3, u"September"_s);
        Enter(u"03011999"_s, u"03311999"_s, 0, u"March"_s);
        InWindow([&](RecurForm& form) {
            auto& spin = In<PictureButton>(form, "picRightSpin");
            const auto& remove = In<QPushButton>(form, "btnDelete");
            Activate(form);
            QVERIFY(spin.Visible(2));
            Hold(form);
            QVERIFY(spin.Visible(1));
            QCOMPARE(Shown(form), september);
            QVERIFY(!In<QPushButton>(form, "btnOk").isEnabled() && remove.isDefault());
            QCOMPARE(In<QPushButton>(form, "btnCancel").text(), u"Done"_s);
            for (const char* name : {"maskStartDate", "maskUntil", "opMethod(4)", "cmbRecurDays", "cmbRecurSpecial",
                                     "btnPickDate(0)", "btnPickDate(1)"})
                QVERIFY2(!In<QWidget>(form, name).isEnabled(), name);
            // While held down, the window shows a record other than the one before the table's place.
            Press(form, "btnDelete");
            QVERIFY(form.isVisible());
            Release(form);
            QCOMPARE(Shown(form), september);
            QTest::keyClick(&spin, Qt::Key_Space);
            QCOMPARE(Shown(form), u"03/01/1999 03/31/1999 0 March"_s);
            Hold(form);
            QCOMPARE(Shown(form), december);
            QCOMPARE(Label(form), u"Next Recurring Event"_s);
            Release(form);
            QVERIFY(spin.Visible(0) && !remove.hasFocus() && !remove.isDefault());
            In<RichTextBox>(form, "tbRecurse").setFocus();
            QVERIFY(remove.isDefault());
            QCOMPARE(Label(form), u"End of Recurring Event"_s);
            Hold(form), Release(form);
            QCOMPARE(Shown(form), december);
            QTest::keyClick(&In<QPushButton>(form, "btnCancel"), Qt::Key_Return);
            QVERIFY(!form.isVisible());
        });
        m_program->Trigger("mnuWeekView");
        InWindow([](RecurForm& form) {
            for (int i = 0; i < 2; ++i)
                Hold(form), Release(form);
            const QString days = u"Every day: 31 days, from Mar 1, 1999 to Mar 31, 1999."_s;
            QCOMPARE(Days(form), days);
            for (const int answer : {msgbox::No, msgbox::Yes}) {
                SeenBox asked;
                AnswerNextBox(answer, &asked);
                QTest::keyClick(&In<MaskEdBox>(form, "maskUntil"), Qt::Key_Return);
                QVERIFY(asked.Text.endsWith(days) && asked.DefaultButton == u"No"_s);
                QCOMPARE(form.isVisible(), answer == msgbox::No);
            }
        });
        QCOMPARE(TextOf(u"1999/3/1"_s) + TextOf(u"1999/3/31"_s), QString());
        QCOMPARE(m_program->Box(39).Text(), QString());
        QCOMPARE(TextOf(u"1999/9/1"_s) + TextOf(u"1999/12/1"_s), u"SeptemberDecember"_s);
        InWindow([&](RecurForm& form) { // in the table's order
            for (const QString& shown : {september, december, december}) {
                Hold(form), Release(form);
                QCOMPARE(Shown(form), shown);
            }
            QTest::keyClick(&form, Qt::Key_Escape);
        });
    }

    void WaitsForNotesThatCouldNotBeSaved()
    {
        const FailingStores failing;
        m_program->Open(u"notes.mdb"_s);
        Enter(u"03011999"_s, u"03021999"_s, 0, u"Rent"_s);
        RichTextBox& second = m_program->Box(m_program->CellOf(2));
        m_program->Click(m_program->CellOf(2));
        second.SetSelStart(0);
        QTest::keyClicks(&second, u"Typed "_s);
        SeenBox seen[2];
        InWindow([&](RecurForm& form) {
            Fill(form, {}, u"03091999"_s, 0, u"Other"_s);
            *failing.plan = {1, FailurePlan::ForEver, {3026, u"The disk is full"_s}, u"Commit"_s};
            AnswerNextBox(msgbox::Ok, &seen[0]);
            Press(form, "btnOk");
            QVERIFY(form.isVisible());
            Hold(form), Release(form);
            AnswerNextBox(msgbox::Yes);
            AnswerNextBox(msgbox::Ok, &seen[1]);
            Press(form, "btnDelete");
        });
        for (const SeenBox& box : seen)
            QVERIFY(box.Text.startsWith(u"Some notes could not be saved yet."_s));
        QCOMPARE(second.Text(), u"Typed Rent"_s);
        *failing.plan = {};
        m_program->Trigger("mnuSave");
        QCOMPARE(TextOf(u"1999/3/1"_s) + TextOf(u"1999/3/9"_s), u"Rent"_s);
        QCOMPARE(TextOf(u"1999/3/2"_s), u"Typed Rent"_s);
        QVERIFY(!g_rsRecurse.EOF_());
    }

    // Keeps the note's colours unless a colour is chosen.
    void TheFontOfTheSelectionGoesIntoTheNotes()
    {
        for (const auto& [what, isColored] : Rows<bool>{{"size alone", false}, {"colour too", true}}) {
            const InRow row(this, what);
            constexpr std::uint32_t Red = 0xff, Blue = 0xff0000;
            InWindow([&](RecurForm& form) {
                Fill(form, u"03011999"_s, u"03011999"_s, 0, u"very big"_s);
                auto& box = In<RichTextBox>(form, "tbRecurse");
                Select(box, 4, 2);
                box.SetSelColor(Red);
                Select(box, 5, 3);
                AnswerFontDialog([&](QFontDialog& dialog) {
                    if (isColored) {
                        OnNextModal<QColorDialog>([](QColorDialog& colors) {
                            colors.setCurrentColor(Qt::blue);
                            colors.accept();
                        });
                        dialog.window()->findChild<QPushButton*>(u"btnColor"_s)->click();
                    }
                    ChooseSize(dialog, 20);
                });
                QTest::keyClick(&In<QPushButton>(form, "btnFonts"), Qt::Key_Return);
                Press(form, "btnOk");
            });
            RichTextBox& box = m_program->Box(m_program->CellOf(1));
            QCOMPARE(box.Text(), u"very big"_s);
            Select(box, 0, 4);
            QCOMPARE(box.SelFontSize(), std::optional(8.0));
            Select(box, 5, 3);
            QCOMPARE(box.SelFontSize(), std::optional(20.0));
            QCOMPARE(box.SelColor(), isColored ? std::optional(Blue) : std::nullopt);
        }
    }

    void ARecordThatLeadsNowhereCanBeDeleted()
    {
        g_rsRecurse.AddNew();
        g_rsRecurse.SetField(u"Start Date"_s, u"1999/77/1"_s);
        g_rsRecurse.SetField(u"End Date"_s, u"soon"_s);
        g_rsRecurse.SetField(u"Frequency"_s, u"HOURLY"_s);
        g_rsRecurse.Update();
        InWindow([](RecurForm& form) {
            Hold(form), Release(form);
            QCOMPARE(Days(form), u"This event leads to no days."_s);
            AnswerNextBox(msgbox::Yes);
            Press(form, "btnDelete");
        });
        QVERIFY(g_rsRecurse.EOF_() && g_rsRecurse.BOF());
    }
};

ORRELIN_TEST(RecurFormTest)
#include "recurformtest.moc"
