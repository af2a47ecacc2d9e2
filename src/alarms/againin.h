// When an alarm may ring again, and the menu that asks.
#pragma once

#include <QDateTime>
#include <QMenu>

#include <array>

struct AgainIn
{
    const char* text;
    int minutes, days;
};
inline constexpr std::array<AgainIn, 5> AgainChoices{{
    {"&5 minutes", 5, 0},
    {"1&0 minutes", 10, 0},
    {"&30 minutes", 30, 0},
    {"1 &hour", 60, 0},
    {"&Tomorrow at this time", 0, 1},
}};

// At a whole minute, not before the time is over. A moment in UTC, or tomorrow's wall time wherever the person is then.
inline QDateTime MomentOf(const AgainIn& choice, const QDateTime& now)
{
    constexpr int Minute = 60 * 1000; // milliseconds
    const int begun = now.time().msecsSinceStartOfDay() % Minute;
    const QDateTime next =
        now.addDays(choice.days).addMSecs(choice.minutes * Minute + (begun == 0 ? 0 : Minute - begun));
    return choice.days > 0 ? next : next.toUTC();
}

template <typename Chosen>
QMenu* MakeAgainMenu(QWidget* owner, Chosen chosen)
{
    auto* menu = new QMenu(owner);
    for (const AgainIn& choice : AgainChoices)
        QObject::connect(menu->addAction(QString::fromLatin1(choice.text)), &QAction::triggered, owner,
                         [chosen, &choice] { chosen(choice); });
    return menu;
}
