#include "alarms/alarmlistform.h"
#include "alarms/alarmoptionsform.h"
#include "alarms/alarmtesting.h"
#include "editing/versionsform.h"
#include "notes/recoveryform.h"
#include "planners/importform.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/workwindow.h"
#include "platform/engine/longwork.h"
#include "printing/spoolform.h"
#include "settingsfile.h"
#include "shell/splash.h"
#include "testmain.h"
#include "workgroupprogram.h"

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QTabBar>

namespace {
// In March 1999 cell 18 is the 17th and cell 35 is "Memo4".
constexpr int Today = 18;

QString Called(const QObject& object)
{
    return QLatin1StringView(object.metaObject()->className()) + u' ' + object.objectName();
}

// The faulty names and roles below this object.
QStringList Nameless(QAccessibleInterface* item)
{
    if (!item || item->state().invisible) return {};
    QStringList wrong;
    QAccessibleActionInterface* actions = item->actionInterface();
    const bool acts = item->state().focusable || (actions && actions->actionNames().contains(actions->pressAction()));
    const bool isGroup = qobject_cast<QGroupBox*>(item->object()) != nullptr;
    const bool hasRole = item->role() != QAccessible::NoRole && item->role() != QAccessible::Client;
    if ((acts || isGroup) && item->object() && (item->text(QAccessible::Name).isEmpty() || !hasRole))
        wrong += u"no name or role: "_s + Called(*item->object());
    for (int i = 0; i < item->childCount(); ++i)
        wrong += Nameless(item->child(i));
    return wrong;
}

QList<QWidget*> TabStops(const QWidget& window)
{
    QList<QWidget*> stops;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isStop = widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy();
        if (isStop && widget->isVisible() && widget->isEnabled() && widget->window() == &window) stops += widget;
    }
    return stops;
}

// The Tab key reaches one button of a group, the arrow keys the others.
bool IsReached(QWidget* stop, const QList<QWidget*>& reached)
{
    const auto* radio = qobject_cast<QRadioButton*>(stop);
    return reached.contains(stop) || std::any_of(reached.begin(), reached.end(), [&](QWidget* other) {
               return radio && qobject_cast<QRadioButton*>(other) && other->parent() == stop->parent();
           });
}

// Controls that the Tab key does not reach, or that do not show the focus.
QStringList Unreached(QWidget& window)
{
    QStringList wrong;
    QList<QWidget*> reached;
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab); // some styles show the focus only after a key has moved it
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
    QWidget* focus = window.focusWidget();
    while (focus && !reached.contains(focus)) {
        reached += focus;
        const QRect area = QRect(focus->mapTo(&window, QPoint()), focus->size()).adjusted(-4, -4, 4, 4);
        const QImage entered = window.grab(area).toImage();
        QTest::keyClick(focus, Qt::Key_Tab);
        const auto* button = qobject_cast<QPushButton*>(focus);
        const bool looksChosen = button && button->isDefault(); // the style shows its focus by this look
        if (!looksChosen && window.focusWidget() != focus && window.grab(area).toImage() == entered)
            wrong += u"focus not seen: "_s + Called(*focus);
        focus = window.focusWidget();
    }
    for (QWidget* stop : TabStops(window)) {
        if (!IsReached(stop, reached)) wrong += u"not reached: "_s + Called(*stop);
    }
    return wrong;
}

QStringList Unreadable(QWidget& window)
{
    QStringList wrong;
    const QImage shown = window.grab().toImage();
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<QLabel*>(widget);
        const auto* option = qobject_cast<QAbstractButton*>(widget);
        const bool hasText = (label && !label->text().isEmpty()) || (option && !option->text().isEmpty()) ||
                             qobject_cast<QGroupBox*>(widget);
        if (!hasText || !widget->isVisible() || widget->window() != &window) continue;
        const bool wraps = label && label->wordWrap();
        const QSize wanted = wraps ? QSize(0, widget->heightForWidth(widget->width())) : widget->minimumSizeHint();
        if (wanted.width() > widget->width() || wanted.height() > widget->height())
            wrong += u"cut: "_s + Called(*widget);
        if (!widget->isEnabled() || qobject_cast<QPushButton*>(widget)) continue;
        const QColor ground = shown.pixelColor(widget->mapTo(&window, QPoint(widget->width() - 2, 1)));
        const QColor ink = widget->palette().color(widget->foregroundRole());
        if (qAbs(qGray(ink.rgb()) - qGray(ground.rgb())) < 100) wrong += u"pale: "_s + Called(*widget);
    }
    return wrong;
}

QStringList WrongIn(QWidget& window)
{
    return Nameless(QAccessible::queryAccessibleInterface(&window)) + Unreadable(window) + Unreached(window);
}

QPalette BlackPalette()
{
    QPalette palette(Qt::white, Qt::black, Qt::gray, Qt::darkGray, Qt::lightGray, Qt::white, Qt::white, Qt::black,
                     Qt::black);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}
} // namespace

// The program without a mouse, with a screen reader, with large letters and with a dark screen.
class AccessibleTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WorkgroupProgram> m_program;
    QString m_look;
    QStringList m_wrong;

    static QString Said(const QWidget& widget)
    {
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
        return access->text(QAccessible::Name) + u'|' + access->text(QAccessible::Description);
    }
    QString Said(int cell) const { return Said(m_program->Box(cell)); }

    // Saves a picture if scripts/screens asks for one.
    void Picture(const char* name, QWidget& window) const
    {
        const QString folder = qEnvironmentVariable("ORRELIN_SCREENS");
        const QString path = folder + u"/%1 %2.png"_s.arg(QLatin1StringView(name), m_look);
        if (!folder.isEmpty() && !window.grab().save(path)) QTest::qFail("no picture", __FILE__, __LINE__);
    }

    void Look(const char* entry, QWidget& window)
    {
        Q_UNUSED(QTest::qWaitFor([&] { return window.isActiveWindow(); }));
        Picture(entry, window);
        for (const QString& what : WrongIn(window))
            m_wrong += QLatin1StringView(entry) + u' ' + what;
    }
    void Look(const char* entry, QWidget&& window)
    {
        window.show();
        Look(entry, window);
    }

    // Windows without any action in them.
    void ShowAndPicture(const char* name, QWidget&& window) const
    {
        window.show();
        QTest::qWait(50);
        Picture(name, window);
    }

    void WriteNotes() const
    {
        m_program->Type(m_program->CellOf(3), u"Dentist at nine, bring the papers"_s);
        m_program->Trigger("mnuBold");
        m_program->Type(m_program->CellOf(9), u"Ann's birthday. Cake!"_s);
        m_program->Type(Today, u"A note that is longer than its cell has lines for, as notes are when somebody has "
                               "much to do on one day and writes all of it."_s);
    }

    // Looks at the window that the entry opens, modal or not.
    void LookAtWindowOf(const char* entry)
    {
        OnNextModal([](QWidget*) { return true; },
                    [=, this](QWidget* window) {
                        Look(entry, *window);
                        window->close();
                    });
        m_program->Trigger(entry);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || window == m_program->form.get() || WaitingAnswers() == 0) continue;
            DropAnswers();
            Look(entry, *window);
            window->close();
        }
        if (WaitingAnswers() != 0) m_wrong += QLatin1StringView(entry) + u" opens no window"_s;
        DropAnswers();
        m_program->Activate();
    }

    void LookAtAPersonalPlanner()
    {
        SetIni("MRU", "MRU1", u"/home/ann/home.mdb"_s);
        SetIni("MRU", "MRU2", u"/srv/the office/team.mdb"_s);
        m_program->Start();
        QAccessible::setActive(true);
        Look("no planner", *m_program->form);
        m_program->New(u"own.mdb"_s);
        WriteNotes();
        AddAlarms({MakeAlarm("1999/3/17", "10:00", "")});
        m_program->Trigger("mnuNextMonth");
        m_program->Trigger("mnuPrevMonth");
        m_program->Click(Today);
        Look("main window", *m_program->form);
        auto* const tabs = m_program->Find<TabStrip>("tabSidebar").findChild<QTabBar*>();
        tabs->setCurrentIndex(1);
        Look("pictures", *m_program->form);
        tabs->setCurrentIndex(0);
        m_program->Trigger("mnuWeekView");
        Look("week", *m_program->form);
        m_program->Trigger("mnuMonthView");
        for (const char* entry :
             {"mnuAbout",       "mnuAutoload",     "mnuChangeAlarms", "mnuColorSizeFonts",  "mnuDateDiffCustomize",
              "mnuDateSearch",  "mnuDayView",      "mnuExport",       "mnuFindWord",        "mnuFindAll",
              "mnuInitialFont", "mnuMonthDisplay", "mnuMonToSun",     "mnuNewAlarm",        "mnuNumberDlg",
              "mnuPageSetup",   "mnuRecurse",      "mnuSpelling",     "mnuWallpaperOption", "mnuWeekAppearance"}) {
            m_program->Click(Today);
            LookAtWindowOf(entry);
        }
    }

    void LookAtAWorkgroups()
    {
        m_program->New(u"team.mdb"_s, true);
        LookAtWindowOf("mnuNetworkOptions");
        m_program->Click(Today);
        m_program->PressLock();
        Picture("locked", *m_program->form);
        m_program->PressLock();
        Look("recovery",
             RecoveryForm({{u"1999/3/17"_s, "{\\rtf1 Cake}", "{\\rtf1 Cake and candles}"}}, m_program->form.get()));
        const ImportedFile file{
            {{{}, u"Dentist"_s, u"cancelled"_s, false, true, true, true, {{{1999, 3, 17}, 0, {}}}, {}}},
            {u"Line 3: no day of the calendar: 1999-13-01"_s},
            {}};
        Look("import", ImportForm(m_program->form.get(), u"days.ics"_s, {}, {2001, 3, 17}, file, {}));
        const QDateTime then(QDate(1999, 3, 16), QTime(9, 30));
        Look("versions", VersionsForm(m_program->form.get(), u"Mar 17, 1999"_s, "{\\rtf1 Cake and\\par candles}",
                                      {{{then, u"Replaced by user 'bartholomew' on machine 'accounts-office'"_s,
                                         "{\\rtf1 Tea and\\par candles}"},
                                        {then.addDays(-2), u"Backup"_s, "{\\rtf1 Tea}"}},
                                       {u"'team 1999-03-12.mdb' is not a planner."_s}}));
        Look("open as", OpenAsForm(u"team.mdb"_s, m_program->form.get()));
        ShowAndPicture("start", StartUpForm());
        ShowAndPicture("exit", ExitForm());
        ShowAndPicture("spool", SpoolForm(m_program->form.get()));
        {
            const WorkWindow work(u"Compact"_s, u"Cancel leaves the planner as it is."_s);
            while (!QApplication::activeModalWidget())
                longwork::Reached(2, 3);
            Look("work", *QApplication::activeModalWidget());
        }
        const Alarm alarm = MakeAlarm("1999/3/17", "09:30", "{\\rtf1 Call the \\b school\\b0  back.}");
        ShowAndPicture("alarm", AlarmEventForm(alarm, false, m_program->form->screen(), nullptr));
        AlarmListNeeds needs;
        needs.print = [](QWidget*, const auto&) {};
        needs.putOff = [](const Alarm&, const QDateTime&) { return true; };
        auto* const list = new AlarmListForm(m_program->form.get(), u"Missed Alarms"_s, needs);
        list->Add({{QDateTime(QDate(1999, 9, 30), QTime(22, 30), Qt::UTC), alarm}});
        list->show();
        Look("alarms", *list);
        delete list;
        Look("alarm options", AlarmOptionsForm(m_program->form.get()));
    }

    void LookAtAll(const char* look, const QPalette& palette, double letters)
    {
        const QFont font = QApplication::font();
        const QPalette usual = QApplication::palette();
        QFont larger = font;
        larger.setPointSizeF(font.pointSizeF() * letters);
        QApplication::setFont(larger);
        QApplication::setPalette(palette);
        m_wrong.clear();
        m_look = QString::fromLatin1(look);
        LookAtAPersonalPlanner();
        LookAtAWorkgroups();
        QApplication::setFont(font);
        QApplication::setPalette(usual);
        for (const QString& what : m_wrong)
            QTest::qFail(qPrintable(what), __FILE__, __LINE__);
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<WorkgroupProgram>(); }
    void cleanup()
    {
        m_program.reset();
        QAccessible::setActive(false);
    }

    void EveryWindow() { LookAtAll("usual", QApplication::palette(), 1); }
    void EveryWindowOnADarkScreen() { LookAtAll("dark", BlackPalette(), 1); }
    void EveryWindowInLargeLetters() { LookAtAll("large", QApplication::palette(), 2); }

    void ACellTellsItsDayAndWhatIsSeenOfIt()
    {
        m_program->Start();
        m_program->New(u"own.mdb"_s);
        AddAlarms({MakeAlarm("1999/3/16", "10:00", "")});
        QCOMPARE(Said(Today), u"|"_s); // no screen reader is active
        QAccessible::setActive(true);
        QCOMPARE(Said(Today), u"Wednesday, March 17, 1999|Today."_s);
        QCOMPARE(Said(m_program->Panel(Today)), Said(Today));
        QCOMPARE(Said(Today + 1), u"Thursday, March 18, 1999|"_s);
        QCOMPARE(Said(1), u"Memo 1 of March 1999|"_s);
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(Said(Today), u"Wednesday, April 14, 1999|"_s);
        m_program->Trigger("mnuWeekView");
        QCOMPARE(Said(FirstWeekCell), u"Sunday, April 11, 1999|"_s);
        m_program->Trigger("mnuMonthView");
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(Said(Today - 1), u"Tuesday, March 16, 1999|Past. Has an alarm."_s);
        auto* mark = m_program->form->findChild<QToolButton*>(u"btnTunes(%1)"_s.arg(Today - 1));
        QCOMPARE(Said(*mark), u"Alarm of Tuesday, March 16, 1999|Alarm"_s);
        m_program->Box(Today - 1).setFocus();
        QTest::keyClick(&m_program->Box(Today - 1), Qt::Key_Tab);
        QVERIFY(mark->hasFocus());
        QTest::keyClick(mark, Qt::Key_Tab);
        QVERIFY(m_program->Box(Today).hasFocus());
    }

    void TheKeyboardFindsBackToTheNote()
    {
        m_program->Start();
        m_program->New(u"own.mdb"_s);
        auto& form = *m_program->form;
        RichTextBox& note = m_program->Box(Today);
        Activate(form);
        note.setFocus();
        auto* size = form.findChild<QWidget*>(u"orlcmbFontsize"_s);
        size->setFocus(Qt::TabFocusReason);
        QTest::keyClick(size, Qt::Key_Escape);
        QVERIFY(note.hasFocus());
        QTest::keyClick(&note, Qt::Key_N, Qt::AltModifier); // no menu has this letter
        QCOMPARE(note.Text(), QString());
        form.menuBar()->setFocus(Qt::MenuBarFocusReason);
        OnNextModal<QDialog>([](QDialog& search) { search.reject(); });
        m_program->Trigger("mnuDateSearch");
        Activate(form);
        QTRY_VERIFY(note.hasFocus());
        QTest::keyClick(&note, Qt::Key_F10);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QApplication::activePopupWidget()->close();
    }

    void ACellTellsItsLock()
    {
        m_program->Start();
        m_program->New(u"team.mdb"_s, true);
        QAccessible::setActive(true);
        m_program->Click(Today);
        m_program->PressLock();
        QCOMPARE(Said(Today), u"Wednesday, March 17, 1999|Today. Locked by you."_s);
        QCOMPARE(Said(m_program->Lock()), u"Network Unlock|Network Unlock"_s);
        QVERIFY(QAccessible::queryAccessibleInterface(&m_program->Lock())->state().checked);
        m_program->PressLock();
        QCOMPARE(Said(Today), u"Wednesday, March 17, 1999|Today."_s);
        QVERIFY(!QAccessible::queryAccessibleInterface(&m_program->Lock())->state().checked);
    }
};

ORRELIN_TEST(AccessibleTest)
#include "accessibletest.moc"
