#include "notes/exitsave.h"

#include "hall/cells.h"
#include "notes/journal.h"
#include "notes/qmtdb.h"
#include "notes/rescuefiles.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/calendarstate.h"
#include "state/lockedday.h"
#include "state/plannerstate.h"

namespace {
constexpr QLatin1StringView ExitTail(" in MainForm, subExitProgram");
}

bool ExitSave::AnyCellChanged()
{
    const ErrorTail tail(ExitTail);
    bool changed = !m_notes.Unsaved().IsEmpty();
    for (int cell = 1; cell <= CellCount && !changed; ++cell) {
        tail([&] {
            const bool marked = !g_bDBShared && IsMarked(cell);
            changed = m_cells.tbDay(cell).Modified() || marked;
        });
    }
    return changed;
}

void ExitSave::SaveBeforeExit(bool mayAsk)
{
    const ErrorTail tail(ExitTail);
    if (AnyCellChanged() && !g_bExitSaved) {
        g_bExitSaved = true;
        SetMousePointer(mousepointer::Hourglass);
        tail([&] { m_notes.subUpdateQMTDatabase(); });
        tail([&] { m_notes.WriteUnsaved(); });
        SetMousePointer(mousepointer::Default);
    }
    tail([&] { m_lockedDay.LeaveBehind(); });
    if (mayAsk) {
        AskForUnsaved();
        m_journal.Remove();
    } else {
        tail([&] { KeepForNextTime(); });
    }
    m_journal.Leave();
}

// The planner's next opening offers the journal, while a rescue file could go unnoticed.
void ExitSave::KeepForNextTime()
{
    m_isEnded = true;
    if (!m_journal.Write() && KeepAsFiles(false)) m_notes.ForgetUnsaved(m_notes.Unsaved().Planners());
}

void ExitSave::AskForUnsaved()
{
    const ErrorTail tail(ExitTail);
    while (!m_notes.Unsaved().IsEmpty() && !m_isEnded) {
        if (AskToRetry()) {
            tail([&] { m_notes.WriteUnsaved(); });
        } else if (KeepAsFiles(true)) {
            m_notes.ForgetUnsaved(m_notes.Unsaved().Planners());
        }
    }
}

bool ExitSave::AskToRetry()
{
    const QString question = u"These notes could not be saved:\n\n%1\n\n%2\n\nRetry saves them again. "
                             "Cancel ends Orrelin and keeps each of them as a file in\n%3"_s;
    return MsgBox(question.arg(m_notes.Unsaved().Describe(), m_notes.WhyUnsaved().join(u'\n'), RescueFolder()),
                  msgbox::RetryCancel + msgbox::Critical, messages::HelpWizard) == msgbox::Retry;
}

// False: the notes are stored nowhere, and the person wants to try again.
bool ExitSave::KeepAsFiles(bool mayAsk)
{
    const QString reason = WriteRescueFiles(m_notes.Unsaved(), ExitTail);
    if (reason.isEmpty() || !mayAsk) return reason.isEmpty();
    const QString question = u"The notes could not be kept as files either: %1\n\nEnd Orrelin and lose "
                             "them?"_s;
    return MsgBox(question.arg(reason), msgbox::YesNo + msgbox::Critical + msgbox::DefaultButton2,
                  messages::HelpWizard) == msgbox::Yes;
}
