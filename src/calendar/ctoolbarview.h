// The toolbar's place: shown or hidden, at the top or at the bottom of the client area.
#pragma once

#include <cstdint>

class Menus;
class Toolbar;

class CToolbarView
{
public:
    static constexpr std::int32_t AlignTop = 1;
    static constexpr std::int32_t AlignBottom = 2;

    CToolbarView(Toolbar& tbTop, Menus& menus); // reads the settings

    bool IsVisible() const { return m_bVisible; }
    std::int32_t GetAlignment() const { return m_iAlignment; }
    int Height() const; // logical pixels, whether or not it is shown
    void ShowControl();

private:
    void UpdateMenus();

    Toolbar& m_tbTop;
    Menus& m_menus;
    bool m_bVisible;
    std::int32_t m_iAlignment;
};
