// The place of the toolbar: hidden, or at the top or bottom of the client area.
#pragma once

#include <cstdint>

class Menus;
class Toolbar;
struct Rectangle;

class CToolbarView
{
public:
    static constexpr std::int32_t AlignTop = 1;
    static constexpr std::int32_t AlignBottom = 2;

    CToolbarView(Toolbar& tbTop, Menus& menus); // reads the settings
    ~CToolbarView();                            // writes them
    CToolbarView(const CToolbarView&) = delete;
    CToolbarView& operator=(const CToolbarView&) = delete;

    // Changes are written to the settings at once. The caller lays the window out again.
    bool IsVisible() const { return m_bVisible; }
    void SetVisible(); // toggles
    std::int32_t GetAlignment() const { return m_iAlignment; }
    void SetAlignment(std::int32_t alignment);
    // Moves the toolbar if it was dropped where a toolbar can be. The point is in client coordinates.
    void DragDropReposition(const Rectangle& client, std::int32_t x, std::int32_t y);

    int Height() const; // logical pixels, also while hidden
    void ShowControl();

private:
    void WriteSettings() const;
    void UpdateMenus();

    Toolbar& m_tbTop;
    Menus& m_menus;
    bool m_bVisible;
    std::int32_t m_iAlignment;
};
