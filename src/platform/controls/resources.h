// The pictures that the program carries in itself, under ":/icons".
#pragma once

#include <QIcon>

// A static library's pictures are left out by the linker unless they are asked for: once, before the first is used.
inline void InitResources()
{
    Q_INIT_RESOURCE(orrelin);
}

// An SVG picture that is read when it is first painted: to read those of a whole window would cost start-up time.
QIcon PictureIcon(const QString& file);
