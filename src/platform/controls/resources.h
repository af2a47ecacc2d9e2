// The pictures that the program carries in itself, under ":/icons".
#pragma once

#include <QtGlobal>

// A static library's pictures are left out by the linker unless they are asked for: once, before the first is used.
inline void InitResources()
{
    Q_INIT_RESOURCE(orrelin);
}
