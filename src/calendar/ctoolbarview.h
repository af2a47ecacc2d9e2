// The toolbar's place: shown or hidden, at the top or at the bottom of the client area.
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

    // A change is written to the settings at once; the window is to be laid out anew by the caller.
    bool IsVisible() const { return m_bVisible; }
    void SetVisible(); // the other way round
    std::int32_t GetAlignment() const { return m_iAlignment; }
    void SetAlignment(std::int32_t alignment);
    // The bar was dropped at this point of the client area; it moves only if that is where a bar can be.
    void DragDropReposition(const Rectangle& client, std::int32_t x, std::int32_t y);

    int Height() const; // logical pixels, whether or not it is shown
    void ShowControl();

private:
    void WriteSettings() const;
    void UpdateMenus();

    Toolbar& m_tbTop;
    Menus& m_menus;
    bool m_bVisible;
    std::int32_t m_iAlignment;
};
