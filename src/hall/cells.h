// The calendar's controls: the arrays of cells and headings, with their events by index. No behaviour: what an event
// does stands with the subject it belongs to.
#pragma once

#include "platform/controls/controlarray.h"
#include "platform/controls/sspanel.h"
#include "platform/richtext/richtextbox.h"
#include "state/modshow.h"
#include "state/viewmode.h"

#include <QObject>
#include <QToolButton>
#include <QVariant>

class Cells : public QObject
{
    Q_OBJECT

public:
    // The controls become children of the client area. Nothing is loaded yet but heading 0, which the form brings.
    explicit Cells(QWidget* client);

    QWidget* Client() const { return m_client; }
    // Sees the events of every box that is loaded from now on.
    void SetBoxFilter(QObject* filter) { m_boxFilter = filter; }

    // Raises GotFocus again for the box with the caret, if there is one: after a redraw no cell is current, though the
    // caret still stands in one.
    void EnterAgain();

    // Has the cell stand for a day or a memo of the shown month.
    void Number(int cell, const DaySlot& slot);
    const QString& KeyOf(int cell) const { return m_days.at(std::size_t(cell)).key; } // its date key, empty before that
    int DayOf(int cell) const { return m_days.at(std::size_t(cell)).number; }         // of the month; 0 for a memo

    // The cell has become the current one. Until the next one does, the caret has its day while it stands in a cell
    // that shows the day of then; a redraw may put another day there.
    void RememberEntry(int cell) { m_entered = KeyOf(cell); }
    bool CaretHasItsDay() const;
    int CellWithCaret() const;     // 0 for none; also while another window is the active one
    void LeaveFor(QWidget& other); // gives the focus to what is no cell, and raises Left

    bool Shows(int cell) const { return tbDay.Exists(cell) && !tbDay(cell).isHidden(); }
    void Unmark(); // all of them
    // That keeps a person in place who holds a day: the current one, or the locked one where that is not shown.
    int CellToStayIn() const { return Shows(g_iCurrentPanel) ? g_iCurrentPanel : MarkedCell(); }
    QVariantList Keys(CellRange range) const;      // of the days that the loaded ones stand for
    int CellOfDay(CellRange range, int day) const; // the loaded one that stands for this day of the month, or 0
    // Are reached by the Tab key behind all cells, those included that are loaded later.
    void SetTabBehind(QWidget* first, QWidget* second);

    ControlArray<SSPanel> lblDayOfWeek; // 0 to 6, Sunday first
    ControlArray<SSPanel> panelDay;     // 1 to 35 the month's grid, 36 to 42 the week's row
    ControlArray<RichTextBox> tbDay;    // the note of the cell with the same index
    ControlArray<QToolButton> btnTunes; // the alarm mark, loaded for the cells that have one

Q_SIGNALS:
    // The cells shown have got their captions anew, or other places: they may stand for other days.
    void Redrawn();
    void StateChanged(int Index); // the cell is locked or unlocked, or its alarm mark has come or gone
    void PanelClick(int Index);
    void PanelDblClick(int Index);
    void HeadingDblClick(int Index);
    void AlarmMarkClick(int Index);
    void GotFocus(int Index);
    void Left(); // by LeaveFor; in a window that is not the active one nothing else tells of it
    void Click(int Index);
    void MouseDown(int Index, int Button, const QPoint& globalPosition);
    void MouseMove(int Index);
    void Change(int Index);
    void SelChange(int Index);
    void KeyPress(int Index, int& KeyAscii);
    void PasteRequested(int Index, bool& allowed);

private:
    struct Day
    {
        QString key;
        int number = 0;
    };

    void PlaceInTabOrder(QWidget* box);
    SSPanel* MakeHeading(int index);
    SSPanel* MakePanel(int index);
    RichTextBox* MakeBox(int index);
    QToolButton* MakeAlarmMark(int index);

    QWidget* m_client;
    QObject* m_boxFilter = nullptr;
    std::array<Day, CellCount + 1> m_days;
    QString m_entered; // key
    QWidget* m_firstBehind = nullptr;
    QWidget* m_secondBehind = nullptr;
};
