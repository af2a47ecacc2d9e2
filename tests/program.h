// The whole main window with its own folders, as a person starts it, and helpers for its controls.
#pragma once

#include "files.h"
#include "notes.h"
#include "planners/openasform.h"
#include "platform/controls/resources.h"
#include "platform/controls/sspanel.h"
#include "platform/controls/timer.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/folders.h"
#include "platform/richtext/richtextbox.h"
#include "platform/runtime/errortail.h"
#include "shell/mainform.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"
#include "state/workgroupstate.h"
#include "support.h"

#include <QAction>
#include <QRadioButton>

#include <memory>

class Program
{
public:
    Program()
    {
        InitResources();
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 17), QTime(9, 30)));
        QDir().mkpath(folders::ApplicationDirectory());
    }

    ~Program()
    {
        form.reset();
        DropAnswers();
        desktopclock::SetForTests(QDateTime());
        ResetPlannerStateForTests();
        ResetCalendarStateForTests();
        ResetWorkgroupStateForTests();
        CloseErrorLog();
    }

    static std::unique_ptr<Program> Started()
    {
        auto program = std::make_unique<Program>();
        program->Start();
        return program;
    }

    void Start(const std::optional<HandOver>& back = {})
    {
        ResetPlannerStateForTests();
        ResetCalendarStateForTests();
        ResetWorkgroupStateForTests();
        g_bErrorTrap = true;
        OpenErrorLog(LogPath());
        form = std::make_unique<Mainform>();
        form->resize(1000, 700);
        form->Form_Load([](const QString&) {}, [] {}, back);
        Activate();
    }

    // Without a window manager no window is active after a box has closed.
    void Activate() const
    {
        form->activateWindow();
        QVERIFY(QTest::qWaitFor([this] { return form->isActiveWindow(); }, support::longestWait));
    }

    void Exit()
    {
        Trigger("mnuExit");
        form.reset();
    }

    // Chooses personal or shared in the next OpenAsForm, and clicks its tick.
    static void AnswerOpenAs(bool shared, bool tick = false)
    {
        OnNextModal<OpenAsForm>([=](OpenAsForm& form) {
            form.findChild<QRadioButton*>(u"opShared(%1)"_s.arg(int(shared)))->click();
            if (tick) In<QAbstractButton>(form, "chkAtEveryStart").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
    }

    void New(const QString& name, bool shared = false, bool tick = false)
    {
        AnswerNextFileDialog(folders.Path(name));
        AnswerOpenAs(shared, tick);
        AnswerNextBox(msgbox::Ok);
        Trigger("mnuNew");
        Activate();
    }

    void Open(const QString& name, bool shared = false, bool tick = false)
    {
        AnswerNextFileDialog(folders.Path(name));
        AnswerOpenAs(shared, tick);
        Trigger("mnuOpen");
        Activate();
    }

    template <typename Control>
    Control& Find(const char* name) const
    {
        return *form->findChild<Control*>(QString::fromLatin1(name));
    }
    QAction& Entry(const char* name) const { return Find<QAction>(name); }
    void Trigger(const char* name) const { Entry(name).trigger(); }

    // Opens a window by its menu entry and runs the action in it.
    template <typename Window>
    void InWindow(const char* entry, const std::function<void(Window&)>& act) const
    {
        OnNextModal<Window>(act);
        Trigger(entry);
        QCOMPARE(WaitingAnswers(), 0);
        Activate();
    }
    // The message box that the entry opens; empty if it opens none.
    SeenBox Said(const char* entry, int answer = msgbox::Ok) const
    {
        SeenBox seen;
        AnswerNextBox(answer, &seen);
        Trigger(entry);
        DropAnswers();
        return seen;
    }

    // The message box at the opening of this planner.
    SeenBox SaidAtOpening(const QString& name, bool shared = false, int answer = msgbox::Ok)
    {
        AnswerNextFileDialog(folders.Path(name));
        AnswerOpenAs(shared);
        const SeenBox seen = Said("mnuOpen", answer);
        Activate();
        return seen;
    }

    RichTextBox& Box(int cell) const { return *form->findChild<RichTextBox*>(u"tbDay(%1)"_s.arg(cell)); }
    SSPanel& Panel(int cell) const { return *form->findChild<SSPanel*>(u"panelDay(%1)"_s.arg(cell)); }
    SSPanel& Bottom() const { return *form->findChild<SSPanel*>(u"panelBottom"_s); }
    void Click(int cell) const { QTest::mouseClick(Box(cell).viewport(), Qt::LeftButton, {}, QPoint(20, 8)); }
    void Type(int cell, const QString& text) const
    {
        Click(cell);
        QTest::keyClicks(&Box(cell), text);
    }

    void Tick(const char* timer) const { Q_EMIT Find<Timer>(timer).Tick(); }

    // The cell of a day in the shown month.
    int CellOf(int day) const
    {
        for (int cell = 1; cell <= 35; ++cell) {
            if (Panel(cell).Caption().trimmed() == QString::number(day)) return cell;
        }
        return 0;
    }

    QString LogPath() const { return folders::ApplicationDirectory() + u"/planner.err"_s; }
    QByteArray Log() const { return Content(LogPath()); }

    // The stored text of a key, read by a connection of its own; null without a record.
    QByteArray Stored(const QString& name, const QString& key) const
    {
        Recordset notes = DBEngine::OpenDatabase(folders.Path(name)).OpenTable(u"QMT Table"_s);
        notes.SetIndex(u"qmtPrimaryKey"_s);
        notes.Seek(u"="_s, key);
        return notes.NoMatch() ? QByteArray() : notes.Fields(u"qmtText"_s).toByteArray();
    }

    TemporaryFolders folders;
    std::unique_ptr<Mainform> form;
};
