#include "calendar/cellnames.h"

#include "hall/cells.h"
#include "platform/desktop/clock.h"
#include "platform/runtime/errortail.h"
#include "state/calendarstate.h"
#include "state/moddate.h"
#include "state/modshow.h"
#include "state/plannerstate.h"

namespace {
constexpr QLatin1StringView Literal(" in CCalendarView, CellNames");

GridDay DayToday()
{
    return GridDayOf(desktopclock::Now().date());
}

// "Today. Has an alarm."
QString Describe(const Cells& cells, int cell)
{
    const GridDay day = {g_iYear, g_iMonth, cells.DayOf(cell)};
    const bool isDay = day.day != 0;
    const std::pair<bool, QLatin1StringView> parts[] = {
        {isDay && day == DayToday(), "Today."_L1},
        {isDay && day < DayToday(), "Past."_L1},
        {g_bDBShared && IsMarked(cell), "Locked by you."_L1},
        {cells.btnTunes.Exists(cell), "Has an alarm."_L1},
    };
    QStringList said;
    for (const auto& [holds, words] : parts) {
        if (holds) said += words;
    }
    return said.join(u' ');
}
} // namespace

CellNames::CellNames(Cells& cells) : QObject(&cells), m_cells(cells), m_active(QAccessible::isActive())
{
    QAccessible::installActivationObserver(this);
    connect(&cells, &Cells::Redrawn, this, [this] { NameAll(); });
    connect(&cells, &Cells::StateChanged, this, Guarded(Literal, [this](int Index) {
        if (m_active) Name(Index);
    }));
}

CellNames::~CellNames()
{
    QAccessible::removeActivationObserver(this);
}

void CellNames::accessibilityActiveChanged(bool active)
{
    m_active = active;
    NameAll();
}

void CellNames::NameAll()
{
    if (!m_active) return;
    Guarded(Literal, [&] {
        for (int cell = 1; cell <= CellCount; ++cell)
            Name(cell);
    })();
}

void CellNames::Name(int cell)
{
    if (!m_cells.tbDay.Exists(cell) || !m_cells.panelDay.Exists(cell)) return;
    if (m_cells.panelDay(cell).Caption().isEmpty()) return; // not drawn yet
    const QString name = DayInWords(m_cells.panelDay(cell).Caption());
    const QString description = Describe(m_cells, cell);
    for (QWidget* part :
         {static_cast<QWidget*>(&m_cells.panelDay(cell)), static_cast<QWidget*>(&m_cells.tbDay(cell))}) {
        if (part->accessibleName() != name) part->setAccessibleName(name);
        if (part->accessibleDescription() != description) part->setAccessibleDescription(description);
    }
    if (m_cells.btnTunes.Exists(cell)) m_cells.btnTunes(cell).setAccessibleName(u"Alarm of "_s + name);
}
