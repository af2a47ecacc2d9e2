// The mouse pointer as one value that is set and set back, over the whole program.
#pragma once

#include <QtGlobal>

class QDialog;

namespace mousepointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
} // namespace mousepointer

void SetMousePointer(int pointer);

// A hourglass until the end of its scope.
class Hourglass
{
public:
    Hourglass() { SetMousePointer(mousepointer::Hourglass); }
    ~Hourglass() { SetMousePointer(mousepointer::Default); }
    Q_DISABLE_COPY_MOVE(Hourglass)
};

// The answer of a dialog, with the usual mouse pointer meanwhile: the person is to choose now, not to wait. A
// dialog is deleted with its owner, so it may be gone when this returns.
int ExecModal(QDialog& dialog);
