// The sixteen colours of the format bar in the order of its list.
#pragma once

#include <cstdint>

// Index of a colour value (blue, green, red from high to low) in the list, -1 for any other colour.
int ColorListIndex(std::uint32_t color);
