// The place of the sidebar: whether it is shown, and which of its two pages is in front.
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

    void PosTabPages(); // lays out the pages and their controls
    void TogglePages(); // brings the page of the selected tab to the front
    bool IsVisible() const { return m_bVisible; }
    void SetVisible(); // toggles; written to the settings at once
    int Width() const; // of the strip, also while hidden
    void ShowControl(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

private:
    void WriteSetting() const;

    const Sidebar& m_sidebar;
    Menus& m_menus;
    bool m_bVisible;
};
