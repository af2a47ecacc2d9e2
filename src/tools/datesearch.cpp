#include "tools/datesearch.h"

#include "calendar/bottompanel.h"
#include "calendar/calendarstate.h"
#include "calendar/modshow.h"
#include "calendar/redraw.h"
#include "calendar/viewmode.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "platform/controls/sspanel.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "tools/datesearchform.h"

void DateSearch::PanelBottom_DblClick()
{
    if (m_viewMode.GetViewMode() == ViewMode::Month) return mnuDateSearch_Click();
    MsgBox(QStringLiteral("Please switch to Monthly View first."), msgbox::Information,
           QStringLiteral("Currently not Monthly View"));
}

void DateSearch::mnuDateSearch_Click()
{
    DateSearchForm form(m_client.window());
    if (form.exec() != QDialog::Accepted) return;
    const ErrorTail tail(QLatin1StringView(" in DateSearchForm, btnOk_Click"));
    SetMousePointer(mousepointer::Hourglass);
    tail([&] { m_notes.subUpdateQMTDatabase(); });
    g_iMonth = form.Month().value_or(g_iMonth);
    g_iYear = form.Year().value_or(g_iYear);
    tail([&] { m_redraw.subDisplayMonth(); });
    m_bottom.panelBottom->SetCaption(MonthTitle());
    if (HasPlanner()) tail([&] { m_notes.subSeekQMTDatabase(); });
    SetMousePointer(mousepointer::Default);
}
