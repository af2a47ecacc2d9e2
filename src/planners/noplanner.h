// The state in which no planner is open: a card on the calendar offers the ways to one, the cells show no caret, and
// what is typed into one is refused.
#pragma once

class Cells;
class Menus;
class Opening;
class QString;
class StartCard;

class NoPlanner
{
public:
    // Connects to the cells after the handlers of a shared planner, which may refuse a key first.
    NoPlanner(Cells& cells, Menus& menus, StartCard& card, Opening& opening);

    void Follow(bool isOpen); // an opening has succeeded or failed

private:
    bool RefusesWithout() const; // true after a message while no planner is open
    void WireCells();
    void WireCard(Menus& menus, Opening& opening);
    bool IsThere(const QString& path); // else offers to take the planner off the card
    void ShowPlanners();
    void PlaceCard();
    void Admit(bool isOpen);
    void Leave();
    int CellOfToday() const; // 0 if it is not shown

    Cells& m_cells;
    StartCard& m_card;
};
