#include "editing/colornames.h"

#include <algorithm>

namespace {
constexpr std::array<std::uint32_t, 16> ListOrder = {0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080,
                                                     0x808000, 0x808080, 0xC0C0C0, 0x0000FF, 0x00FF00, 0x00FFFF,
                                                     0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
} // namespace

int ColorListIndex(std::uint32_t color)
{
    const auto found = std::ranges::find(ListOrder, color);
    return found == ListOrder.end() ? -1 : static_cast<int>(found - ListOrder.begin());
}
