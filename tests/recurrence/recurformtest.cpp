#include "recurrence/recurform.h"

#include "failingstore.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/picturebutton.h"
#include "platform/desktop/mousepointer.h"
#include "platform/profile/profile.h"
#include "program.h"

#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>

// The window of recurring events, by real keys and clicks; today is 17 March 1999.
class RecurFormTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    template <typename Control>
    static Control& Find(const RecurForm& form, const char* name)
    {
        return *form.findChild<Control*>(QString::fromLatin1(name));
    }

    static void TypeDate(RecurForm& form, const char* name, const QString& digits)
    {
        auto& box = Find<MaskEdBox>(form, name);
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, digits);
    }

    static void Choose(RecurForm& form, int method)
    {
        if (method >= 0) Find<QRadioButton>(form, qPrintable(QStringLiteral("opMethod(%1)").arg(method))).click();
    }

    static void Press(RecurForm& form, const char* button)
    {
        QTest::mouseClick(&Find<QPushButton>(form, button), Qt::LeftButton);
    }

    // Dates as digits in the order of the box; an empty one leaves what stands there.
    static void Fill(RecurForm& form, const QString& start, const QString& until, int method, const QString& text)
    {
        if (!start.isEmpty()) TypeDate(form, "maskStartDate", start);
        if (!until.isEmpty()) TypeDate(form, "maskUntil", until);
        Choose(form, method);
        QTest::keyClicks(&Find<RichTextBox>(form, "tbRecurse"), text);
    }

    void Enter(const QString& start, const QString& until, int method, const QString& text)
    {
        OnNextModal<RecurForm>([=](RecurForm& form) {
            Fill(form, start, until, method, text);
            Press(form, "btnOk");
            QVERIFY(!form.isVisible());
        });
        m_program->Trigger("mnuRecurse");
    }

    static void Hold(RecurForm& form) { QTest::mousePress(&Find<PictureButton>(form, "picRightSpin"), Qt::LeftButton); }
    static void Release(RecurForm& form)
    {
        QTest::mouseRelease(&Find<PictureButton>(form, "picRightSpin"), Qt::LeftButton);
    }

    // What the window shows of a record.
    static QString Shown(RecurForm& form)
    {
        QString text = Find<MaskEdBox>(form, "maskStartDate").Text() + u' ' + Find<MaskEdBox>(form, "maskUntil").Text();
        for (int i = 0; i < 5; ++i) {
            if (Find<QRadioButton>(form, qPrintable(QStringLiteral("opMethod(%1)").arg(i))).isChecked())
                text += QStringLiteral(" %1").arg(i);
        }
        return text + u' ' + Find<RichTextBox>(form, "tbRecurse").Text();
    }

    QString TextOf(const QString& key) const
    {
        RichTextBox box;
        box.SetTextRTF(m_program->Stored(QStringLiteral("notes.mdb"), key));
        return box.Text();
    }

    static void SetOrder(int iDate)
    {
        WritePrivateProfileStringA(QStringLiteral("intl"), QStringLiteral("iDate"), QString::number(iDate),
                                   QStringLiteral("WIN.INI"));
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        SetOrder(0);
        m_program->Start();
    }

    void cleanup()
    {
        QCOMPARE(WaitingAnswers(), 0);
        m_program.reset();
    }

    void NeedsAPersonalPlanner()
    {
        Program& program = *m_program;
        auto& picture = *program.form->findChild<PictureButton*>(QStringLiteral("picRecurse"));
        SeenBox seen;
        g_sDBPath.clear();
        AnswerNextBox(msgbox::Ok, &seen);
        program.Trigger("mnuRecurse");
        QVERIFY(seen.Text.startsWith(QStringLiteral("No Planner Exists!\nUse 'File' | 'New'")));
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mousePress(&picture, Qt::LeftButton);
        QTest::mouseRelease(&picture, Qt::LeftButton);
        program.New(QStringLiteral("notes.mdb"), true);
        AnswerNextBox(msgbox::Ok, &seen);
        program.Trigger("mnuRecurse");
        QVERIFY(seen.Text.startsWith(QStringLiteral("Global recurring event for a shared database is not allowed.")));
        QCOMPARE(seen.Icon, QMessageBox::Information);
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mouseClick(&picture, Qt::LeftButton);
    }

    void WritesAnEvent_data()
    {
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("start"); // as it stands in the box
        QTest::addColumn<QString>("until"); // as it is typed
        QTest::addColumn<QString>("label");
        QTest::newRow("month first") << 0 << QStringLiteral("03/09/1999") << QStringLiteral("03231999")
                                     << QStringLiteral("MM/DD/YYYY");
        QTest::newRow("day first") << 1 << QStringLiteral("09/03/1999") << QStringLiteral("23031999")
                                   << QStringLiteral("DD/MM/YYYY");
        QTest::newRow("year first") << 2 << QStringLiteral("1999/03/09") << QStringLiteral("19990323")
                                    << QStringLiteral("YYYY/MM/DD");
    }

    void WritesAnEvent()
    {
        QFETCH(int, order);
        QFETCH(QString, start);
        QFETCH(QString, until);
        QFETCH(QString, label);
        Program& program = *m_program;
        SetOrder(order);
        program.New(QStringLiteral("notes.mdb"));
        program.Type(program.CellOf(16), QStringLiteral("already here"));
        program.Click(program.CellOf(9));
        OnNextModal<RecurForm>([&](RecurForm& form) {
            QCOMPARE(Find<MaskEdBox>(form, "maskStartDate").Text(), start);
            QVERIFY(!Find<MaskEdBox>(form, "maskUntil").Text().contains(u'9'));
            QCOMPARE(Find<QLabel>(form, "lblDateFormat(1)").text(), label);
            QVERIFY(!Find<PictureButton>(form, "picRightSpin").isEnabled());
            QVERIFY(!Find<QPushButton>(form, "btnDelete").isEnabled());
            Fill(form, {}, until, -1, QStringLiteral("Rent"));
            Activate(form);
            auto& day = Find<QRadioButton>(form, "opMethod(0)");
            day.setFocus();
            QTest::keyClick(&day, Qt::Key_Right); // while none is chosen
            QTest::keyClick(&Find<MaskEdBox>(form, "maskUntil"), Qt::Key_Return);
            QVERIFY(!form.isVisible());
        });
        QTest::mouseClick(program.form->findChild<PictureButton*>(QStringLiteral("picRecurse")), Qt::LeftButton);
        QCOMPARE(TextOf(QStringLiteral("1999/3/9")), QStringLiteral("Rent"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/16")), QStringLiteral("already here\nRent"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/23")), QStringLiteral("Rent"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/30")), QString());
        QCOMPARE(program.Box(program.CellOf(16)).Text(), QStringLiteral("already here\nRent"));
        QCOMPARE(MousePointer(), mousepointer::Default);
        // The same window shows it again and takes it out. The caret has stayed in its day.
        program.Activate();
        OnNextModal<RecurForm>([&](RecurForm& form) {
            QCOMPARE(Find<MaskEdBox>(form, "maskStartDate").Text(), start);
            Hold(form);
            Release(form);
            QVERIFY(Shown(form).startsWith(start));
            Press(form, "btnDelete");
            QVERIFY(!form.isVisible());
        });
        program.Trigger("mnuRecurse");
        QCOMPARE(TextOf(QStringLiteral("1999/3/16")), QStringLiteral("already here\n"));
        QCOMPARE(program.Box(program.CellOf(9)).Text(), QString());
        QVERIFY(g_rsRecurse.EOF_() && g_rsRecurse.BOF());
    }

    void AMemoGivesNoDate()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        g_iCurrentPanel = 35;
        QVERIFY(m_program->Panel(35).Caption().startsWith(QStringLiteral("Memo")));
        OnNextModal<RecurForm>([](RecurForm& form) {
            QCOMPARE(Find<MaskEdBox>(form, "maskStartDate").Text(), QStringLiteral("__/__/____"));
            QTest::keyClick(&form, Qt::Key_Escape);
            QVERIFY(!form.isVisible());
        });
        m_program->Trigger("mnuRecurse");
    }

    void StaysOpenAndSaysWhy_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("until");
        QTest::addColumn<int>("method");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("message");
        const QString ok = QStringLiteral("03011999");
        QTest::newRow("no start") << QStringLiteral("") << ok << 0 << QStringLiteral("x") << QStringLiteral("1")
                                  << QStringLiteral("Start Date is not a valid date");
        QTest::newRow("start") << QStringLiteral("02291999") << ok << 0 << QStringLiteral("x") << QStringLiteral("1")
                               << QStringLiteral("Start Date is not a valid date");
        QTest::newRow("end") << ok << QStringLiteral("13011999") << 0 << QStringLiteral("x") << QStringLiteral("1")
                             << QStringLiteral("End Date is not a valid date");
        // The box shows the year first. No method is chosen: a year of three digits would be written day by day.
        const QString first = QStringLiteral("1999/11/24"), cut = QStringLiteral("202/11/24");
        QTest::newRow("year of the start") << cut << first << -1 << QStringLiteral("x") << QStringLiteral("1")
                                           << QStringLiteral("Start Date is not a valid date");
        QTest::newRow("year of the end") << first << cut << -1 << QStringLiteral("x") << QStringLiteral("1")
                                         << QStringLiteral("End Date is not a valid date");
        QTest::newRow("order") << ok << QStringLiteral("02281999") << 0 << QStringLiteral("x") << QStringLiteral("1")
                               << QStringLiteral("The Ending Date is earlier than Starting Date");
        QTest::newRow("no method") << ok << ok << -1 << QStringLiteral("x") << QStringLiteral("1")
                                   << QStringLiteral("Please select a recurring method (Day, Week, Month or Year)");
        for (int method = 0; method < 5; ++method)
            QTest::addRow("no text, %d", method) << ok << ok << method << QStringLiteral("") << QStringLiteral("1")
                                                 << QStringLiteral("Recurring event cannot be empty");
        for (const char* number : {"0", "-3", "", "many", "99999"})
            QTest::addRow("step %s", number)
                << ok << ok << 4 << QStringLiteral("x") << QString::fromLatin1(number)
                << QStringLiteral("Please choose how many days, weeks, months or years, 1 or more");
    }

    void StaysOpenAndSaysWhy()
    {
        QFETCH(QString, start);
        QFETCH(QString, until);
        QFETCH(int, method);
        QFETCH(QString, text);
        QFETCH(QString, number);
        QFETCH(QString, message);
        if (start.contains(u'/')) SetOrder(2);
        m_program->New(QStringLiteral("notes.mdb"));
        SeenBox seen;
        OnNextModal<RecurForm>([&](RecurForm& form) {
            Fill(form, start, until, method, text);
            auto& days = Find<QComboBox>(form, "cmbRecurDays");
            QCOMPARE(days.currentText(), QStringLiteral("1"));
            days.setEditText(number);
            AnswerNextBox(msgbox::Ok, &seen);
            Press(form, "btnOk");
            QVERIFY(form.isVisible());
            Press(form, "btnCancel");
        });
        m_program->Trigger("mnuRecurse");
        QCOMPARE(seen.Text, message);
        QCOMPARE(seen.Title, QStringLiteral("Orrelin Help Wizard"));
        QCOMPARE(seen.Icon,
                 message.contains(QStringLiteral("earlier")) ? QMessageBox::Warning : QMessageBox::Information);
        QVERIFY(g_rsRecurse.EOF_());
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/1")).isNull());
    }

    void EveryOtherWeekIsKeptAsAWeek()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        OnNextModal<RecurForm>([](RecurForm& form) {
            Fill(form, QStringLiteral("03011999"), QStringLiteral("03291999"), 4, QStringLiteral("Bins"));
            Find<QComboBox>(form, "cmbRecurDays").setEditText(QStringLiteral("2"));
            auto& units = Find<QComboBox>(form, "cmbRecurSpecial");
            QCOMPARE(units.currentText(), QStringLiteral("Day(s)"));
            QTest::keyClick(&units, Qt::Key_Down);
            Press(form, "btnOk");
        });
        m_program->Trigger("mnuRecurse");
        QCOMPARE(TextOf(QStringLiteral("1999/3/15")), QStringLiteral("Bins"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/8")), QString());
        OnNextModal<RecurForm>([](RecurForm& form) {
            Hold(form);
            QCOMPARE(Shown(form), QStringLiteral("03/01/1999 03/29/1999 1 Bins"));
            Release(form);
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        m_program->Trigger("mnuRecurse");
    }

    void GoesThroughTheEventsOnceAndDeletesTheOneThatIsShown()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        Enter(QStringLiteral("12011999"), QStringLiteral("12011999"), 0, QStringLiteral("December"));
        Enter(QStringLiteral("09011999"), QStringLiteral("09011999"), 3, QStringLiteral("September"));
        Enter(QStringLiteral("03011999"), QStringLiteral("03311999"), 0, QStringLiteral("March"));
        OnNextModal<RecurForm>([&](RecurForm& form) {
            auto& spin = Find<PictureButton>(form, "picRightSpin");
            Activate(form);
            QVERIFY(spin.Visible(2));
            Hold(form);
            QVERIFY(spin.Visible(1));
            // Keys come by their text: September before December.
            QCOMPARE(Shown(form), QStringLiteral("09/01/1999 09/01/1999 3 September"));
            QVERIFY(!Find<QPushButton>(form, "btnOk").isEnabled());
            QVERIFY(Find<QPushButton>(form, "btnDelete").isDefault());
            QCOMPARE(Find<QPushButton>(form, "btnCancel").text(), QStringLiteral("Done"));
            for (const char* name : {"maskStartDate", "maskUntil", "opMethod(4)", "cmbRecurDays", "cmbRecurSpecial"}) {
                const auto& shown = Find<QWidget>(form, name);
                QVERIFY2(!shown.isEnabled(), name);
                const QPalette& colors = shown.palette(); // paler at the most, not the grey of what is of no use
                QVERIFY2(colors.color(QPalette::Text).rgb() == colors.color(QPalette::Active, QPalette::Text).rgb(),
                         name);
            }
            // Held down, the window shows a record that is not the one before the table's place.
            QTest::mouseClick(&Find<QPushButton>(form, "btnDelete"), Qt::LeftButton);
            QVERIFY(form.isVisible());
            Release(form);
            QCOMPARE(Shown(form), QStringLiteral("09/01/1999 09/01/1999 3 September"));
            QTest::keyClick(&spin, Qt::Key_Space);
            QCOMPARE(Shown(form), QStringLiteral("03/01/1999 03/31/1999 0 March"));
            Hold(form);
            QCOMPARE(Shown(form), QStringLiteral("12/01/1999 12/01/1999 0 December"));
            QCOMPARE(Find<QLabel>(form, "lblNextRecord").text(), QStringLiteral("Next Recurring Event"));
            Release(form);
            QVERIFY(spin.Visible(0));
            const auto& remove = Find<QPushButton>(form, "btnDelete");
            QVERIFY(!remove.hasFocus() && !remove.isDefault());
            Find<RichTextBox>(form, "tbRecurse").setFocus();
            QVERIFY(remove.isDefault());
            QCOMPARE(Find<QLabel>(form, "lblNextRecord").text(), QStringLiteral("End of Recurring Event"));
            Hold(form);
            Release(form);
            QCOMPARE(Shown(form), QStringLiteral("12/01/1999 12/01/1999 0 December"));
            QTest::keyClick(&Find<QPushButton>(form, "btnCancel"), Qt::Key_Return);
            QVERIFY(!form.isVisible());
        });
        program.Trigger("mnuRecurse");
        program.Trigger("mnuWeekView");
        OnNextModal<RecurForm>([](RecurForm& form) {
            for (int i = 0; i < 2; ++i)
                Hold(form), Release(form);
            QTest::keyClick(&Find<MaskEdBox>(form, "maskUntil"), Qt::Key_Return); // the default button
            QVERIFY(!form.isVisible());
        });
        program.Trigger("mnuRecurse");
        QCOMPARE(TextOf(QStringLiteral("1999/3/1")), QString());
        QCOMPARE(TextOf(QStringLiteral("1999/3/31")), QString());
        QCOMPARE(program.Box(39).Text(), QString());
        QCOMPARE(TextOf(QStringLiteral("1999/9/1")), QStringLiteral("September"));
        QCOMPARE(TextOf(QStringLiteral("1999/12/1")), QStringLiteral("December"));
        g_rsRecurse.MoveFirst();
        QCOMPARE(g_rsRecurse.Fields(QStringLiteral("Start Date")).toString(), QStringLiteral("1999/9/1"));
        g_rsRecurse.MoveNext();
        g_rsRecurse.MoveNext();
        QVERIFY(g_rsRecurse.EOF_());
    }

    void WaitsForNotesThatCouldNotBeSaved()
    {
        const auto plan = std::make_shared<FailurePlan>();
        DBEngine::SetStoreWrapperForTests(
            [plan](std::shared_ptr<Store> inner) { return std::make_shared<FailingStore>(inner, plan); });
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        DBEngine::SetStoreWrapperForTests(nullptr);
        Enter(QStringLiteral("03011999"), QStringLiteral("03021999"), 0, QStringLiteral("Rent"));
        RichTextBox& second = program.Box(program.CellOf(2));
        program.Click(program.CellOf(2));
        second.SetSelStart(0);
        QTest::keyClicks(&second, QStringLiteral("Typed "));
        SeenBox seen[2];
        OnNextModal<RecurForm>([&](RecurForm& form) {
            Fill(form, {}, QStringLiteral("03091999"), 0, QStringLiteral("Other"));
            *plan = {1, FailurePlan::ForEver, {3026, QStringLiteral("The disk is full")}, QStringLiteral("Commit")};
            AnswerNextBox(msgbox::Ok, &seen[0]);
            Press(form, "btnOk");
            QVERIFY(form.isVisible());
            Hold(form), Release(form);
            AnswerNextBox(msgbox::Ok, &seen[1]);
            Press(form, "btnDelete");
        });
        program.Trigger("mnuRecurse");
        for (const SeenBox& box : seen)
            QVERIFY(box.Text.startsWith(QStringLiteral("Some notes could not be saved yet.")));
        QCOMPARE(second.Text(), QStringLiteral("Typed Rent"));
        *plan = {};
        program.Trigger("mnuSave");
        QCOMPARE(TextOf(QStringLiteral("1999/3/1")), QStringLiteral("Rent"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/2")), QStringLiteral("Typed Rent"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/9")), QString());
        QVERIFY(!g_rsRecurse.EOF_());
    }

    void TheFontOfTheSelectionGoesIntoTheNotes_data()
    {
        QTest::addColumn<bool>("isColored");
        QTest::newRow("size alone") << false;
        QTest::newRow("colour too") << true;
    }

    // Its colours stay, unless one is chosen.
    void TheFontOfTheSelectionGoesIntoTheNotes()
    {
        QFETCH(bool, isColored);
        constexpr std::uint32_t Red = 0xff, Blue = 0xff0000;
        m_program->New(QStringLiteral("notes.mdb"));
        OnNextModal<RecurForm>([&](RecurForm& form) {
            Fill(form, QStringLiteral("03011999"), QStringLiteral("03011999"), 0, QStringLiteral("very big"));
            auto& box = Find<RichTextBox>(form, "tbRecurse");
            box.SetSelStart(4);
            box.SetSelLength(2);
            box.SetSelColor(Red);
            box.SetSelStart(5);
            box.SetSelLength(3);
            AnswerFontDialog([&](QFontDialog& dialog) {
                if (isColored) {
                    OnNextModal<QColorDialog>([](QColorDialog& colors) {
                        colors.setCurrentColor(Qt::blue);
                        colors.accept();
                    });
                    dialog.window()->findChild<QPushButton*>(QStringLiteral("btnColor"))->click();
                }
                QFont font = dialog.currentFont();
                font.setPointSize(20);
                dialog.setCurrentFont(font);
            });
            QTest::keyClick(&Find<QPushButton>(form, "btnFonts"), Qt::Key_Return);
            Press(form, "btnOk");
        });
        m_program->Trigger("mnuRecurse");
        RichTextBox& box = m_program->Box(m_program->CellOf(1));
        QCOMPARE(box.Text(), QStringLiteral("very big"));
        box.SetSelStart(0);
        box.SetSelLength(4);
        QCOMPARE(box.SelFontSize(), std::optional(8.0));
        box.SetSelStart(5);
        box.SetSelLength(3);
        QCOMPARE(box.SelFontSize(), std::optional(20.0));
        QCOMPARE(box.SelColor(), isColored ? std::optional(Blue) : std::nullopt);
    }

    void ARecordThatLeadsNowhereCanBeDeleted()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        g_rsRecurse.AddNew();
        g_rsRecurse.SetField(QStringLiteral("Start Date"), QStringLiteral("1999/77/1"));
        g_rsRecurse.SetField(QStringLiteral("End Date"), QStringLiteral("soon"));
        g_rsRecurse.SetField(QStringLiteral("Frequency"), QStringLiteral("HOURLY"));
        g_rsRecurse.Update();
        OnNextModal<RecurForm>([](RecurForm& form) {
            Hold(form), Release(form);
            Press(form, "btnDelete");
        });
        m_program->Trigger("mnuRecurse");
        QVERIFY(g_rsRecurse.EOF_() && g_rsRecurse.BOF());
    }
};

QTEST_MAIN(RecurFormTest)
#include "recurformtest.moc"
