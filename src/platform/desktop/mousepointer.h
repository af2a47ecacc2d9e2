// The mouse pointer as one value that is set and set back, over the whole program.
#pragma once

namespace mousepointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
} // namespace mousepointer

void SetMousePointer(int pointer);
int MousePointer();
