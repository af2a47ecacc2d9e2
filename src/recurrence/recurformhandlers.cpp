#include "editing/defaultfont.h"
#include "editing/fontcommand.h"
#include "hall/cells.h"
#include "notes/qmtdb.h"
#include "plannerfile/schema.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/softtext.h"
#include "platform/desktop/mousepointer.h"
#include "platform/richtext/richtextbox.h"
#include "platform/richtext/selectionformat.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "recurrence/recurform.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/dateorder.h"
#include "state/moddate.h"
#include "state/modshow.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "state/viewmode.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {
constexpr QLatin1StringView LoadTail(" in RecurForm, Form Load");
constexpr QLatin1StringView SaveTail(" in RecurForm, btnOk_Click");
constexpr QLatin1StringView DeleteTail(" in RecurForm, btnDelete_Click");
constexpr int Idle = 0, Pressed = 1, Released = 2; // the spin's pictures
constexpr int MostListed = 15;

// By Frequency.
constexpr QLatin1StringView Units[] = {"Day(s)"_L1, "Week(s)"_L1, "Month(s)"_L1, "Year(s)"_L1};

bool Tell(const QString& text, int icon = msgbox::Information)
{
    messages::Tell(text, icon);
    return false;
}

// The box is selected, so that the next digit replaces the date.
bool RefuseDate(MaskEdBox& box, const QString& text, int icon)
{
    box.setFocus();
    box.selectAll();
    return Tell(text, icon);
}
} // namespace

void RecurForm::Form_Load()
{
    const ErrorTail tail(LoadTail);
    m_picRightSpin->setEnabled(false);
    tail([this] {
        if (g_rsRecurse.EOF_() && g_rsRecurse.BOF()) return;
        g_rsRecurse.MoveFirst();
        m_picRightSpin->ShowElement(Released);
        m_picRightSpin->setEnabled(true);
    });
    tail([this] { ShowDefaultDate(); });
    for (int i = 1; i <= MostListed; ++i)
        m_cmbRecurDays->addItem(QString::number(i));
    for (const QLatin1StringView unit : Units)
        m_cmbRecurSpecial->addItem(unit);
    tail([this] { GiveDefaultFont(*m_tbRecurse, DefaultStyles::None, LoadTail); });
}

void RecurForm::ShowDefaultDate()
{
    if (!m_cells.panelDay.Exists(g_iCurrentPanel)) return;
    const QString key = CellKey(m_cells.panelDay(g_iCurrentPanel).Caption());
    const bool isDay = fnGetQMTDay(key) > 0; // 0 for a memo
    if (isDay && g_iYear <= LastYearOfBox) m_maskStartDate->SetText(m_iDateFormat.BoxText(key));
}

bool RecurForm::HaveValidDates()
{
    const Refusal refusal = RefusalOfDates();
    return refusal.text.isEmpty() || RefuseDate(*refusal.box, refusal.text, refusal.icon);
}

void RecurForm::btnOk_Click()
{
    const ErrorTail tail(SaveTail);
    m_tbRecurse->CommitPreedit();
    if (!HaveValidDates()) return;
    bool saved = false;
    tail([&] {
        const Hourglass hourglass;
        saved = SaveCells() && SaveEvent(StartDate(), EndDate());
    });
    tail([this] { m_notes.subSeekQMTDatabase(); });
    tail([this] { ReopenRecords(); });
    if (saved) accept();
}

// An unsaved note would later overwrite the event in its day.
bool RecurForm::SaveCells()
{
    m_notes.subUpdateQMTDatabase();
    if (!m_notes.HasChanges()) return true;
    return Tell(u"Some notes could not be saved yet. Please save them before you change recurring events."_s,
                msgbox::Exclamation);
}

bool RecurForm::SaveEvent(const QString& sStart, const QString& sEnd)
{
    const int method = m_opMethod->checkedId();
    if (method < 0) return Tell(MethodProblem());
    Recurrence event = Event();
    if (method == Special) return fnRecurseSpecial(event, sStart, sEnd);
    return event.Save(static_cast<Frequency>(method), sStart, sEnd, 1);
}

bool RecurForm::fnRecurseSpecial(Recurrence& event, const QString& sStart, const QString& sEnd)
{
    if (!event.HasText()) return false;
    const std::int16_t step = Step(ErrorTail{" in RecurForm, fnRecurseSpecial"_L1});
    // A step below 1 would write the same day for ever.
    if (step < 1) {
        m_cmbRecurDays->setFocus();
        return Tell(MethodProblem());
    }
    return event.Save(static_cast<Frequency>(m_cmbRecurSpecial->currentIndex()), sStart, sEnd, step);
}

Recurrence RecurForm::Event()
{
    QTextCharFormat plain = FormatOf(m_tbRecurse->Font());
    plain.merge(ColorFormat(fnColorInHex(Read(settings::DefaultFontColor).toUpper())));
    return {m_tbRecurse->TextRTF(), plain};
}

// The press shows the current record; the release moves the table on.
void RecurForm::picRightSpin_MouseDown()
{
    m_isPressed = true;
    Browse();
    m_picRightSpin->ShowElement(Pressed);
    ShowRecord();
}

void RecurForm::picRightSpin_MouseUp()
{
    m_isPressed = false;
    m_picRightSpin->ShowElement(Released);
    g_rsRecurse.MoveNext();
    if (g_rsRecurse.EOF_()) EndOfRecords();
}

void RecurForm::EndOfRecords()
{
    m_picRightSpin->ShowElement(Idle);
    m_btnCancel->setFocus(); // so that repeated Space does not reach Delete
    m_picRightSpin->setEnabled(false);
    m_lblNextRecord->setText(u"End of Recurring Event"_s);
}

void RecurForm::Browse()
{
    m_btnOk->setEnabled(false);
    m_btnOk->setDefault(false);
    m_btnCancel->setText(u"Done"_s);
    m_btnDelete->setEnabled(true);
    m_btnDelete->setDefault(true);
    m_tbRecurse->SetLocked(true); // changed text would not be found in the notes
    m_btnFonts->setEnabled(false);
    QWidgetList shown = {m_maskStartDate, m_maskUntil, m_cmbRecurDays, m_cmbRecurSpecial};
    for (QAbstractButton* option : m_opMethod->buttons())
        shown += option;
    for (QWidget* input : shown) {
        input->setEnabled(false);
        KeepReadable(*input);
    }
}

void RecurForm::ShowRecord()
{
    m_maskStartDate->SetText(m_iDateFormat.BoxText(g_rsRecurse.Fields(u"Start Date"_s).toString()));
    m_maskUntil->SetText(m_iDateFormat.BoxText(g_rsRecurse.Fields(u"End Date"_s).toString()));
    ShowMethod(g_rsRecurse.Fields(u"Frequency"_s).toString());
    m_tbRecurse->SetTextRTF(g_rsRecurse.Fields(u"Recursion Text"_s).toByteArray());
    ShowDays();
}

void RecurForm::ShowMethod(const QString& frequency)
{
    const auto known = FrequencyOf(frequency);
    m_opMethod->setExclusive(false); // an exclusive group cannot be left without a choice
    for (QAbstractButton* option : m_opMethod->buttons())
        option->setChecked(known && m_opMethod->id(option) == static_cast<int>(*known));
    m_opMethod->setExclusive(true);
}

void RecurForm::btnDelete_Click()
{
    if (m_isPressed) return; // while the spin is pressed, the table has not moved past the shown record
    if (!AskToDelete()) return;
    const ErrorTail tail(DeleteTail);
    const bool isFound = tail([] { g_rsRecurse.MovePrevious(); });
    {
        const Hourglass hourglass;
        bool cellsAreSaved = false;
        tail([&] { cellsAreSaved = SaveCells(); }); // before the cells are emptied, whatever failed
        if (isFound && cellsAreSaved) tail([this] { DeleteShown(); });
        tail([this] { ShowCells(); });
    }
    tail([this] { ReopenRecords(); });
    accept();
}

// An event that is still in some notes keeps its record, without which the rest could not be found.
void RecurForm::DeleteShown()
{
    const auto method = static_cast<Frequency>(m_opMethod->checkedId());
    const bool isOut =
        !LeadsToNotes() || Event().TakeOut(method, fnFnGetQMTDate(StartDate()), fnFnGetQMTDate(EndDate()));
    if (isOut) g_rsRecurse.Delete();
}

void RecurForm::ShowCells()
{
    // On purpose all 42 in the month view but only the month's in the week view, where the read renews the week's.
    const int last = m_viewMode.GetViewMode() == ViewMode::Month ? LastWeekCell : LastMonthCell;
    for (int cell = FirstMonthCell; cell <= last; ++cell) {
        if (!m_cells.tbDay.Exists(cell)) continue;
        m_cells.tbDay(cell).SetTextRTF({});
        Mark(cell, false);
    }
    m_notes.subSeekQMTDatabase();
}

void RecurForm::ReopenRecords()
{
    g_rsRecurse.Close();
    g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
}

void RecurForm::btnFonts_Click()
{
    const ErrorTail tail(" in RecurForm, btnFonts_Click"_L1);
    ApplyToSelection(*m_tbRecurse, m_fontCommand.Ask(this, *m_tbRecurse, tail), tail);
    m_tbRecurse->setFocus();
}

void RecurringEvents::mnuRecurse_Click()
{
    if (RefusesWithoutPlanner() || RefusesShared(u"Global recurring event"_s)) return;
    // After a redraw no cell is current, though the caret may still be in one.
    if (!m_cells.Shows(g_iCurrentPanel)) m_cells.EnterAgain();
    RecurForm(m_cells.Client()->window(), m_cells, m_notes, m_viewMode, m_fontCommand).exec();
}
