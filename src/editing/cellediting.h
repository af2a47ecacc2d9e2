// What the cells do when they are entered, clicked and typed into. A note is typed straight into its cell; the focus
// alone decides which cell is current.
#pragma once

#include <QObject>
#include <QPoint>

#include <optional>

class Cells;
class Formatting;
struct FormatBar;
class HeldDay;
class Menus;
class RichTextBox;
class ViewMode;

class CellEditing : public QObject
{
    Q_OBJECT

public:
    // Connects to the events of all cells, also of those loaded later.
    CellEditing(Cells& cells, const FormatBar& bar, const HeldDay& heldDay, Menus& menus, const ViewMode& viewMode,
                Formatting& formatting);

    void tbDay_GotFocus(int Index);
    void tbDay_Click(int Index);
    void panelDay_Click(int Index); // enters the cell, too
    void tbDay_Change();
    void tbDay_KeyPress(int Index, int& KeyAscii);
    void tbDay_MouseDown(int Index, int Button, const QPoint& globalPosition);
    void tbDay_SelChange(int Index);

private:
    void Wire();
    bool IsHeldElsewhere(int Index) const;
    void RefuseMove();
    void TellRefusal(int held);
    void EnterIfNoneIsCurrent(int Index);
    void FollowButtons(const RichTextBox& box);
    void FollowCombos(const RichTextBox& box);
    void ShowFormAtCaret(int Index);

    Cells& m_cells;
    const FormatBar& m_bar;
    const HeldDay& m_heldDay;
    Menus& m_menus;
    const ViewMode& m_viewMode;
    Formatting& m_formatting;
    bool m_isRefusing = false;              // the message box is open or queued
    std::optional<QPoint> m_menuAfterwards; // global position of the refused press
};
