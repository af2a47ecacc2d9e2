#include "editing/earlierversions.h"

#include "editing/dayview.h"
#include "editing/versionsform.h"
#include "hall/cells.h"
#include "notes/heldday.h"
#include "platform/desktop/windowplace.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/undooffer.h"
#include "state/calendarstate.h"
#include "state/moddate.h"
#include "state/plannerstate.h"
#include "state/refusals.h"

namespace {
void TellNone(const QString& day, const DayVersions& versions)
{
    messages::Tell(u"No earlier text of %1 is kept that differs from the present one."_s.arg(day), msgbox::Information,
                   versions.remarks.join(u"\n\n"_s));
}
} // namespace

void EarlierVersions::mnuVersions_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    const int cell = m_dayView.CellToOpen();
    if (cell == 0) return; // no cell is shown
    const QString key = m_cells.KeyOf(cell), day = fnFormatDateKey(key);
    RichTextBox& box = m_cells.tbDay(cell);
    box.CommitPreedit();
    const QByteArray present = box.IsEmpty() ? QByteArray() : box.TextRTF();
    const DayVersions versions = VersionsOf(key, present);
    if (versions.found.empty()) return TellNone(day, versions);
    VersionsForm form(OwnerOfDialog(), day, present, versions);
    if (form.exec() != QDialog::Accepted) return;
    if (!m_cells.Shows(cell) || m_cells.KeyOf(cell) != key)
        return messages::Tell(u"The calendar has turned meanwhile. Nothing was put back."_s, msgbox::Exclamation);
    if (MayWrite(cell)) PutBack(cell, form.Chosen());
}

bool EarlierVersions::MayWrite(int cell)
{
    const int held = MarkedCell(cell);
    if (g_bDBShared && held != 0 && m_heldDay.IsHeld()) {
        m_heldDay.KeepInPlace(held);
        return false;
    }
    g_iCurrentPanel = static_cast<std::int16_t>(cell);
    // A lock by hand shows what others have stored meanwhile, so that undo brings it back.
    if (g_bDBShared && !m_heldDay.Holds(m_cells.KeyOf(cell))) m_heldDay.subLockDay();
    if (g_bDBShared) return m_heldDay.Holds(m_cells.KeyOf(cell));
    if (!m_cells.tbDay(cell).Locked()) return true;
    messages::Tell(u"Nothing can be put back, since the day's note could not be read."_s, msgbox::Exclamation);
    return false;
}

void EarlierVersions::PutBack(int cell, const QByteArray& rtf)
{
    RichTextBox& box = m_cells.tbDay(cell);
    QTextDocument version;
    version.setDefaultFont(box.Font());
    ReadRtf(rtf, version);
    ReplaceText(*box.document(), version);
    box.SetModified(true);
    box.setFocus();
}
