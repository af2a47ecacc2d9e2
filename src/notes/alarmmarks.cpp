#include "notes/alarmmarks.h"

#include "hall/cells.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"

void PlaceAlarmIcon(Cells& cells, int cell)
{
    constexpr int Margin = 5;
    const QRect panel = cells.panelDay(cell).geometry();
    QToolButton& mark = cells.btnTunes(cell);
    mark.move(panel.x() + panel.width() - mark.width() - Margin, panel.y() + Margin);
    mark.show();
    mark.raise();
}

void subShowAlarmIcon(Cells& cells, const QString& key, int cell)
{
    g_rsAlarm.Seek(u"="_s, key);
    if (g_rsAlarm.NoMatch()) return;
    if (!cells.btnTunes.Exists(cell)) cells.btnTunes.Load(cell);
    PlaceAlarmIcon(cells, cell);
    Q_EMIT cells.StateChanged(cell);
}

void subUnloadAlarmIcons(Cells& cells)
{
    for (int cell = 1; cell <= CellCount; ++cell)
        UnloadAlarmIcon(cells, cell);
}

void UnloadAlarmIcon(Cells& cells, int cell)
{
    if (!cells.btnTunes.Exists(cell)) return;
    cells.btnTunes.Unload(cell);
    Q_EMIT cells.StateChanged(cell);
}
