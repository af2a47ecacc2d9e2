#include "editing/notezoom.h"

#include <QShortcut>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr std::array Percentages = {50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};

struct ZoomKey
{
    Qt::Key key;
    int steps;
};
// The equals sign is the plus without Shift on many keyboards.
constexpr std::array ZoomKeyTable = {ZoomKey{Qt::Key_Plus, 1}, ZoomKey{Qt::Key_Equal, 1}, ZoomKey{Qt::Key_Minus, -1},
                                     ZoomKey{Qt::Key_0, 0}};

int Larger(int percent)
{
    const auto* next = std::ranges::upper_bound(Percentages, percent);
    return next == Percentages.end() ? Percentages.back() : *next;
}

int Smaller(int percent)
{
    const auto* here = std::ranges::lower_bound(Percentages, percent);
    return here == Percentages.begin() ? Percentages.front() : *std::prev(here);
}
} // namespace

int ReadZoom(const IntSetting& setting)
{
    return std::clamp(Read(setting), Percentages.front(), Percentages.back());
}

int StepZoom(const IntSetting& setting, int steps)
{
    int percent = steps == 0 ? setting.fallback : ReadZoom(setting);
    for (int step = 0; step < std::abs(steps); ++step)
        percent = steps > 0 ? Larger(percent) : Smaller(percent);
    Write(setting, percent);
    return percent;
}

QString ZoomText(int percent)
{
    return u"Shown at %1 %"_s.arg(percent);
}

ZoomKeys::ZoomKeys(QWidget& area) : QObject(&area)
{
    area.installEventFilter(this);
    for (const ZoomKey& row : ZoomKeyTable) {
        auto* key = new QShortcut(QKeySequence(QKeyCombination(Qt::CTRL, row.key)), &area);
        connect(key, &QShortcut::activated, this, [this, &row] { Q_EMIT Stepped(row.steps); });
    }
}

bool ZoomKeys::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::Wheel) return false;
    const auto& wheel = *static_cast<QWheelEvent*>(event);
    if (!(wheel.modifiers() & Qt::ControlModifier)) return false;
    if (const int notches = m_notches.Take(wheel); notches != 0) Q_EMIT Stepped(notches);
    return true;
}
