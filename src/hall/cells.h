// The calendar's controls: the arrays of cells and headings, with their events by index. No behaviour.
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
    // The controls are children of the client area. Only heading 0 is loaded.
    explicit Cells(QWidget* client);

    QWidget* Client() const { return m_client; }
    // The filter sees the events of every box loaded from now on.
    void SetBoxFilter(QObject* filter) { m_boxFilter = filter; }

    // Emits GotFocus again for the box with the caret, if there is one. A redraw makes no cell current though the caret
    // stays.
    void EnterAgain();

    void Number(int cell, const DaySlot& slot);
    // Its date key, empty before Number.
    const QString& KeyOf(int cell) const { return m_days.at(std::size_t(cell)).key; }
    int DayOf(int cell) const { return m_days.at(std::size_t(cell)).number; } // of the month; 0 for a memo

    // The caret has its day while it is in a cell that shows the day of the last remembered entry. A redraw may put
    // another day there.
    void RememberEntry(int cell) { m_entered = KeyOf(cell); }
    bool CaretHasItsDay() const;
    int CellWithCaret() const;     // 0 for none; also while another window is active
    void LeaveFor(QWidget& other); // moves the focus out of the cells and emits Left

    bool Shows(int cell) const { return tbDay.Exists(cell) && !tbDay(cell).isHidden(); }
    void Unmark(); // all cells
    // The cell to return to while a day is held: the current one, or the locked one if that is hidden.
    int CellToStayIn() const { return Shows(g_iCurrentPanel) ? g_iCurrentPanel : MarkedCell(); }
    QVariantList Keys(CellRange range) const;      // date keys of the loaded cells
    int CellOfDay(CellRange range, int day) const; // the loaded cell of this day of the month, or 0
    // Puts the two behind all cells in the tab order, also behind those loaded later.
    void SetTabBehind(QWidget* first, QWidget* second);

    ControlArray<SSPanel> lblDayOfWeek; // 0 to 6, Sunday first
    ControlArray<SSPanel> panelDay;     // 1 to 35 the month's grid, 36 to 42 the week's row
    ControlArray<RichTextBox> tbDay;    // the note of the cell with the same index
    ControlArray<QToolButton> btnTunes; // the alarm mark, loaded for the cells that have one

Q_SIGNALS:
    // The shown cells have new captions or places, so they may stand for other days.
    void Redrawn();
    void StateChanged(int Index); // its lock or its alarm mark has changed
    void PanelClick(int Index);
    void PanelDblClick(int Index);
    void BlankDblClick(int Index); // in the cell, but not on its text
    void HeadingDblClick(int Index);
    void AlarmMarkClick(int Index);
    void GotFocus(int Index);
    void Left(); // emitted by LeaveFor, since an inactive window gets no focus event
    void Click(int Index);
    void MouseDown(int Index, int Button, const QPoint& globalPosition);
    void MouseMove(int Index);
    void Change(int Index);
    void SelChange(int Index);
    void TookBack(int Index);
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
