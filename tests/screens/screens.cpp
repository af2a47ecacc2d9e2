// Puts a picture of every window of the program into a folder: screens FOLDER [dark]. Windows are those that a person
// gets by the menu, over a planner with notes; the platform's own dialogs for files and printers are not among them.
#include "alarms/alarmeventform.h"
#include "alarms/alarmrecords.h"
#include "notes/recoveryform.h"
#include "printing/spoolform.h"
#include "program.h"
#include "shell/splash.h"

#include <QStyleFactory>
#include <QTabBar>

namespace {
const QString Planner = u"family.mdb"_s;
QString g_folder;

void Save(QWidget& window, const char* name)
{
    QTest::qWait(50); // what is laid out when the event loop runs
    if (!window.grab().save(g_folder + u'/' + QString::fromLatin1(name) + u".png"_s))
        qFatal("No picture can be written into %s", qPrintable(g_folder));
}

// The menu entry, and the window that it brings, which is closed as by Esc.
void SaveCommand(const Program& program, const char* entry)
{
    OnNextModal([](QWidget*) { return true; },
                [entry](QWidget* window) {
                    Save(*window, entry + 3); // without "mnu"
                    QTest::keyClick(window, Qt::Key_Escape);
                });
    program.Trigger(entry);
    DropAnswers();
}

// Windows that stay beside the main one.
void SaveBeside(const Program& program, const char* entry)
{
    const QWidgetList before = QApplication::topLevelWidgets();
    program.Trigger(entry);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (before.contains(window) || !window->isVisible() || !window->isWindow()) continue;
        Save(*window, entry + 3);
        window->close();
    }
}

void Write(const Program& program)
{
    program.Type(program.CellOf(3), u"Dentist at nine, bring the papers"_s);
    program.Type(program.CellOf(9), u"Ann's birthday"_s);
    program.Trigger("mnuBold");
    program.Type(program.CellOf(9), u" Cake! "_s);
    program.Type(program.CellOf(18), u"A note that is longer than its cell has lines for, as notes are "
                                     "when somebody has much to do on one day and writes all of it."_s);
    subAddAlarmRecord(g_rsAlarm, {u"1999/3/3"_s, u"10:00"_s, "call", {}, true});
    program.Trigger("mnuSave");
}

void SaveMain(const Program& program)
{
    program.Click(program.CellOf(17));
    Save(*program.form, "Month");
    program.Trigger("mnuWeekView");
    Save(*program.form, "Week");
    program.Trigger("mnuMonthView");
    auto* const tabs = program.Find<QWidget>("tabSidebar").findChild<QTabBar*>();
    tabs->setCurrentIndex(1);
    Save(*program.form, "Pictures");
    tabs->setCurrentIndex(0);
}

template <typename Window>
void SaveOwn(Window&& window, const char* name)
{
    window.show();
    Save(window, name);
    window.close();
}

void SaveWithoutCommand(QWidget& owner)
{
    SaveOwn(StartUpForm(), "StartUp");
    SaveOwn(ExitForm(), "Exit");
    SaveOwn(SpoolForm(&owner), "Spool");
    SaveOwn(OpenAsForm(u"/home/ann/family.mdb"_s), "OpenAs");
    const Alarm alarm{u"1999/3/17"_s, u"09:30"_s, "{\\rtf1 Call the \\b school\\b0  back.}", {}, true};
    SaveOwn(AlarmEventForm(alarm, owner.screen(), nullptr), "AlarmEvent");
    const FoundNote note{u"1999/3/9"_s, "{\\rtf1 Cake}", "{\\rtf1 Cake and candles}"};
    SaveOwn(RecoveryForm({note, {u"1999/3/10"_s, {}, "{\\rtf1 New}"}}, &owner), "Recovery");
    OnNextModal<QMessageBox>([](QMessageBox& box) {
        Save(box, "MessageBox");
        box.button(QMessageBox::Ok)->click();
    });
    MsgBox(u"These days cannot be saved now.\n\n/home/ann/planners/family.mdb"_s, msgbox::Exclamation,
           u"Orrelin Help Wizard"_s, u"Disk full"_s);
}

void UseDarkDesktop()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QPalette dark(QColor(0x30, 0x32, 0x36), QColor(0x24, 0x26, 0x2A));
    dark.setColor(QPalette::Base, QColor(0x1C, 0x1E, 0x22));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(0x80, 0x84, 0x8A));
    dark.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x84, 0x8A));
    dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x80, 0x84, 0x8A));
    QApplication::setPalette(dark);
}
} // namespace

int main(int count, char** words)
{
    QApplication application(count, words);
    g_folder = QCoreApplication::arguments().value(1);
    if (g_folder.isEmpty() || !QDir().mkpath(g_folder)) return 1;
    if (QCoreApplication::arguments().contains(u"dark"_s)) UseDarkDesktop();
    Program program;
    QDir().mkpath(program.folders.Path(u"shipped"_s));
    QFile::link(QStringLiteral(HELP), program.folders.Path(u"shipped/ORL.HLP"_s));
    program.Start();
    program.New(Planner);
    Write(program);
    SaveMain(program);
    for (const char* entry :
         {"mnuDayView", "mnuPageSetup", "mnuNewAlarm", "mnuChangeAlarms", "mnuRecurse", "mnuDateSearch",
          "mnuDateDiffCustomize", "mnuInitialFont", "mnuNumberDlg", "mnuWeekAppearance", "mnuMonthDisplay",
          "mnuMonToSun", "mnuAutoload", "mnuWallpaperOption", "mnuColorSizeFonts", "mnuAbout"})
        SaveCommand(program, entry);
    SaveBeside(program, "mnuFindWord");
    SaveBeside(program, "mnuContents");
    program.Open(Planner, true);
    program.Click(program.CellOf(3));
    program.Trigger("mnuLockDay");
    Save(*program.form, "Locked");
    program.Trigger("mnuLockDay");
    SaveCommand(program, "mnuNetworkOptions");
    SaveWithoutCommand(*program.form);
    program.Exit();
    return 0;
}
