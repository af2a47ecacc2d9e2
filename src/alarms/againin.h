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

// At a whole minute, not before the time is over.
inline QDateTime MomentOf(const AgainIn& choice, const QDateTime& now)
{
    constexpr int Minute = 60 * 1000; // milliseconds
    const int begun = now.time().msecsSinceStartOfDay() % Minute;
    return now.addDays(choice.days).addMSecs(choice.minutes * Minute + (begun == 0 ? 0 : Minute - begun));
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
