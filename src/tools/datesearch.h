// Fast search: moves the month view to a chosen month and year, the week view to the week of that month's first day.
#pragma once

class Foot;
class QWidget;
class Redraw;
class Turn;
class ViewMode;

class DateSearch
{
public:
    DateSearch(Foot& foot, Turn& turn, Redraw& redraw, const ViewMode& viewMode, QWidget& client)
        : m_foot(foot), m_turn(turn), m_redraw(redraw), m_viewMode(viewMode), m_client(client)
    {
    }

    void mnuDateSearch_Click();  // in either view
    void PanelBottom_DblClick(); // month view only; otherwise a message says so

private:
    void ShowFirstWeek();

    Foot& m_foot;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    QWidget& m_client;
};
