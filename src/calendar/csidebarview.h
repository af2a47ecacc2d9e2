// The sidebar's place: shown or hidden, and which of its two pages lies in front.
#pragma once

#include <cstdint>

class Menus;
struct Sidebar;

class CSidebarView
{
public:
    CSidebarView(const Sidebar& sidebar, Menus& menus); // reads the setting
    ~CSidebarView();                                    // writes it
    CSidebarView(const CSidebarView&) = delete;
    CSidebarView& operator=(const CSidebarView&) = delete;

    void PosTabPages(); // lays the pages and their controls into the strip's client area
    void TogglePages(); // brings the page of the selected tab to the front
    bool IsVisible() const { return m_bVisible; }
    void SetVisible(); // the other way round; written to the settings at once
    int Width() const; // of the strip, whether or not it is shown
    void ShowControl(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

private:
    void WriteSetting() const;

    const Sidebar& m_sidebar;
    Menus& m_menus;
    bool m_bVisible;
};
