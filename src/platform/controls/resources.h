// The program's own pictures, under ":/icons".
#pragma once

#include <QIcon>

// The linker drops a static library's resources unless this is called. Call it once, before the first use.
inline void InitResources()
{
    Q_INIT_RESOURCE(orrelin);
}

// An SVG icon that is read when first painted. Reading those of a whole window would slow the start down.
QIcon PictureIcon(const QString& file);
