// Fast search: jumps the month view to a month and year that are picked.
#pragma once

struct BottomPanel;
class QWidget;
class Redraw;
class Turn;
class ViewMode;

class DateSearch
{
public:
    DateSearch(const BottomPanel& bottom, Turn& turn, Redraw& redraw, const ViewMode& viewMode, QWidget& client)
        : m_bottom(bottom), m_turn(turn), m_redraw(redraw), m_viewMode(viewMode), m_client(client)
    {
    }

    void mnuDateSearch_Click();
    void PanelBottom_DblClick(); // in month view only; says so elsewhere

private:
    const BottomPanel& m_bottom;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    QWidget& m_client;
};
