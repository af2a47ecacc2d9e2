#include "tools/datesearch.h"

#include "calendar/calendarstate.h"
#include "calendar/foot.h"
#include "calendar/redraw.h"
#include "calendar/turn.h"
#include "calendar/viewmode.h"
#include "platform/desktop/msgbox.h"
#include "tools/datesearchform.h"

void DateSearch::PanelBottom_DblClick()
{
    if (m_viewMode.GetViewMode() == ViewMode::Month) return mnuDateSearch_Click();
    MsgBox(u"Please switch to Monthly View first."_s, msgbox::Information, u"Currently not Monthly View"_s);
}

void DateSearch::mnuDateSearch_Click()
{
    DateSearchForm form(m_client.window());
    if (form.exec() != QDialog::Accepted) return;
    m_turn(" in DateSearchForm, btnOk_Click"_L1, [&] {
        g_iMonth = form.Month().value_or(g_iMonth);
        g_iYear = form.Year().value_or(g_iYear);
        m_redraw.subDisplayMonth();
        m_foot.ShowMonth();
    });
}
