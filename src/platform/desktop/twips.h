// Twips, 1/1440 inch: the unit of stored positions. Converted where they are read and written, nowhere else.
#pragma once

inline constexpr int TwipsPerPixel = 15; // logical pixels

constexpr int ToTwips(int pixels)
{
    return pixels * TwipsPerPixel;
}

constexpr int ToPixels(int twips)
{
    return twips / TwipsPerPixel;
}
