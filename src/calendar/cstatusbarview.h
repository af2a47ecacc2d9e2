// Places the bottom panel with the month's title and the spin pictures at its ends.
#pragma once

#include <cstdint>

struct BottomPanel;

class CStatusbarView
{
public:
    explicit CStatusbarView(const BottomPanel& bottom) : m_bottom(bottom) {}

    int Height() const; // of the spin pictures and thus of the panel
    void ShowControl(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

private:
    const BottomPanel& m_bottom;
};
