#include "plannerwindow.h"

#include "platform/controls/resources.h"
#include "platform/runtime/errortail.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QTextCursor>

namespace {
constexpr int StepOfResize = 14; // two pixels per column

// Only a window with the focus paints a caret.
void Activate(QWidget& box)
{
    constexpr int LongestWait = 1000;
    box.window()->raise();
    box.activateWindow();
    box.setFocus();
    for (const QDeadlineTimer until(LongestWait); !box.hasFocus() && !until.hasExpired();)
        PaintNow();
    PaintNow();
}

// Moves the caret away first: text inserted before it would push it to the end, which lays out the whole note.
void Show(const Note& note, QTextEdit& box)
{
    box.setTextCursor(QTextCursor());
    Build({note}, *box.document());
    box.setTextCursor(QTextCursor(box.document()));
}

// Inserts and deletes in turns, so that the note keeps its length.
void Change(RichTextBox& box)
{
    QTextCursor cursor(box.document());
    if (box.document()->characterAt(0) == u'~')
        cursor.deleteChar();
    else
        cursor.insertText(u"~"_s);
}
} // namespace

PlannerWindow::PlannerWindow()
{
    InitResources();
    g_bErrorTrap = true;
    m_form.Form_Load([](const QString&) {}, [] {});
    for (int cell = 1; cell <= BoxCount; ++cell)
        m_paintings.Watch(Box(cell));
    PaintNow();
}

void PlannerWindow::Trigger(const char* entry) const
{
    m_form.findChild<QAction*>(QString::fromLatin1(entry))->trigger();
}

RichTextBox& PlannerWindow::Box(int cell) const
{
    return *m_form.findChild<RichTextBox*>(u"tbDay(%1)"_s.arg(cell));
}

void PlannerWindow::MoveMonth()
{
    Trigger(std::exchange(m_ahead, !m_ahead) ? "mnuPrevMonth" : "mnuNextMonth");
    PaintNow();
}

void PlannerWindow::ShowMonth()
{
    if (!std::exchange(m_inWeek, false)) return;
    Trigger("mnuMonthView");
    PaintNow();
}

void PlannerWindow::ShowThisMonth()
{
    ShowMonth();
    if (m_ahead) MoveMonth();
}

void PlannerWindow::ShowWeek()
{
    if (std::exchange(m_inWeek, true)) return;
    const bool first = !m_form.findChild<QWidget*>(u"tbDay(%1)"_s.arg(BoxCount + 1));
    Trigger("mnuWeekView");
    for (int cell = BoxCount + 1; first && cell <= BoxCount + WeekBoxCount; ++cell)
        m_paintings.Watch(Box(cell));
    PaintNow();
}

void PlannerWindow::MoveWeek()
{
    Trigger(std::exchange(m_weekAhead, !m_weekAhead) ? "mnuPrevWeek" : "mnuNextWeek");
    PaintNow();
}

void PlannerWindow::ResizeStep()
{
    m_narrow = !m_narrow;
    m_form.resize(m_form.width() + (m_narrow ? -StepOfResize : StepOfResize), m_form.height());
    PaintNow();
}

// An empty month would be painted faster than any floor.
bool PlannerWindow::ShowsNotes() const
{
    const YearMonth month = m_ahead ? ThisMonth().Next() : ThisMonth();
    for (int cell : {1, BoxCount}) {
        const QString text = MakeNote(NoteNumber(month, cell)).front().text;
        if (!Box(cell).Text().contains(text)) return false;
    }
    return true;
}

void PlannerWindow::ChangeAllNotes() const
{
    for (int cell = 1; cell <= BoxCount; ++cell)
        Change(Box(cell));
    PaintNow();
}

void PlannerWindow::SaveIfChanged() const
{
    bool changed = false;
    for (int cell = 1; cell <= BoxCount; ++cell)
        changed = changed || Box(cell).Modified() || Box(cell).hasFocus();
    if (changed) Trigger("mnuSave");
    PaintNow();
}

void PlannerWindow::Focus(int cell) const
{
    Activate(Box(cell));
}

BarePlanner::BarePlanner(const QString& path)
    : m_file(path), m_months{MakeMonth(ThisMonth()), MakeMonth(ThisMonth().Next())}
{
    for (QTextEdit* box : m_window.Boxes()) {
        // A scroll bar that appears with the text makes the box lay out three times, which no floor needs.
        box->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        m_paintings.Watch(*box);
    }
    m_window.show();
    MoveMonth(false);
    ShowWeek();
    MoveWeek();
    ShowMonth();
}

BarePlanner::Month BarePlanner::MakeMonth(YearMonth month)
{
    Month made{KeysOf(month), {}, {}};
    for (int cell = 1; cell <= BoxCount; ++cell) {
        made.notes.push_back(MakeNote(NoteNumber(month, cell)));
        made.texts.push_back(RtfOf(made.notes.back()));
    }
    return made;
}

// The rich text is not parsed: the floor inserts the same text with a cursor.
void BarePlanner::ReadInto(const Month& month, int firstBox, int count, bool show)
{
    const auto read = m_file.Read(month.keys.first(count));
    for (std::size_t i = 0; show && i < read.size(); ++i)
        Show(month.notes[i], *m_window.Boxes()[std::size_t(firstBox) + i]);
    PaintNow();
}

void BarePlanner::MoveMonth(bool saves)
{
    if (saves) Save();
    m_shown = 1 - m_shown;
    ReadInto(m_months[m_shown], 0, BoxCount, true);
}

// The boxes still hold this month's notes.
void BarePlanner::ShowMonth()
{
    if (!std::exchange(m_inWeek, false)) return;
    m_window.ShowWeek(false);
    ReadInto(m_months[m_shown], 0, BoxCount, false);
}

void BarePlanner::ShowWeek()
{
    if (std::exchange(m_inWeek, true)) return;
    m_window.ShowWeek(true);
    ReadInto(m_months[m_week], BoxCount, WeekBoxCount, false);
}

void BarePlanner::MoveWeek()
{
    m_week = 1 - m_week;
    ReadInto(m_months[m_week], BoxCount, WeekBoxCount, true);
}

void BarePlanner::ResizeStep()
{
    m_narrow = !m_narrow;
    m_window.resize(m_window.width() + (m_narrow ? -StepOfResize : StepOfResize), m_window.height());
    PaintNow();
}

void BarePlanner::Save()
{
    Month& month = m_months[m_shown];
    // Changes a byte, since storing an unchanged row might cost less.
    for (QByteArray& text : month.texts)
        text.back() = text.back() == ' ' ? '\n' : ' ';
    m_file.Write(month.keys, month.texts);
}

void BarePlanner::Focus(int cell) const
{
    Activate(Box(cell));
}
