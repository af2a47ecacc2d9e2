#include "editing/cellzoom.h"

#include "hall/cells.h"
#include "hall/foot.h"
#include "platform/runtime/errortail.h"
#include "state/viewmode.h"

namespace {
constexpr int NoticeTime = 4000; // milliseconds
constexpr QLatin1StringView CellZoomLiteral(" in CellZoom, Step");
} // namespace

CellZoom::CellZoom(Cells& cells, const ViewMode& viewMode, Foot& foot)
    : QObject(&cells), m_cells(cells), m_viewMode(viewMode), m_foot(foot)
{
    m_notice.setSingleShot(true);
    m_notice.setInterval(NoticeTime);
    connect(&m_notice, &QTimer::timeout, this, [this] { EndNotice(); });
    connect(new ZoomKeys(*cells.Client()), &ZoomKeys::Stepped, this,
            Guarded(CellZoomLiteral, [this](int steps) { Step(steps); }));
    // The view's cells may have just been loaded.
    connect(&cells, &Cells::Redrawn, this, Guarded(CellZoomLiteral, [this] { Show(ReadZoom(Setting())); }));
}

const IntSetting& CellZoom::Setting() const
{
    return m_viewMode.GetViewMode() == ViewMode::Week ? settings::WeekZoom : settings::MonthZoom;
}

void CellZoom::Show(int percent)
{
    for (const int cell : CellsOf(m_viewMode.GetViewMode()))
        if (m_cells.tbDay.Exists(cell)) m_cells.tbDay(cell).SetZoom(percent);
}

void CellZoom::Step(int steps)
{
    const int percent = StepZoom(Setting(), steps);
    Show(percent);
    m_foot.SayBeside(ZoomText(percent));
    m_said = m_foot.Said();
    m_notice.start();
}

void CellZoom::EndNotice()
{
    if (m_foot.Said() == m_said) m_foot.ShowMonth();
}
