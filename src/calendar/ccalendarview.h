// The grid of cells: loads a view's cells when they are first needed, places them and has them drawn. Owns the view
// mode. Lengths are logical pixels of the main window.
#pragma once

#include "state/viewmode.h"

#include <QLatin1StringView>

#include <cstdint>
#include <functional>

class Cells;
class Redraw;
struct Sidebar;

struct Rectangle
{
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    bool operator==(const Rectangle&) const = default;
};

class CCalendarView final : public ViewMode
{
public:
    CCalendarView(Cells& cells, const Sidebar& sidebar); // reads VIEWPREF and MINIMIZED, loads the cells of that view
    void SetRedraw(Redraw& redraw) { m_redraw = &redraw; }

    void SetViewMode(int mode) { m_iViewMode = mode; } // moves and draws nothing
    int GetViewMode() const override { return m_iViewMode; }
    bool StartsMinimized() const { return m_bStartsMinimized; }

    // Places and draws the cells of the current view. Reads no notes.
    void Show(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);
    void Clear(); // hides the cells of the current view
    void GetRect(std::int32_t& left, std::int32_t& top, std::int32_t& right, std::int32_t& bottom) const;

private:
    void LoadCells(int first, int last);
    void PosDayOfWeek(const Rectangle& area);
    void PosWeekPanels(const Rectangle& area);
    void PosMonthPanels(const Rectangle& area);
    void PlaceCell(int cell, int column, int top, int height);
    void ShowViewButtons();
    void PosPanels(int mode, QLatin1StringView literal, const std::function<void(int place)>& placeCell);
    void RestoreAlarmMarks(CellRange cells);

    Cells& m_cells;
    const Sidebar& m_sidebar;
    Redraw* m_redraw = nullptr;
    bool m_bWeekPanelsLoaded = false;
    bool m_bMonthPanelsLoaded = false;
    Rectangle m_rcView;
    std::int32_t m_iViewMode = ViewMode::Month;
    bool m_bStartsMinimized = false;
};
