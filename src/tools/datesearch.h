// Fast search: moves the month view to a chosen month and year.
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

    void mnuDateSearch_Click();
    void PanelBottom_DblClick(); // month view only; otherwise a message says so

private:
    Foot& m_foot;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    QWidget& m_client;
};
