// Twips (1/1440 inch), the unit of stored positions. They are converted only where they are read and written.
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
