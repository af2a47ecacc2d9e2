// The program's mouse pointer as one value.
#pragma once

#include <QtGlobal>

class QDialog;

namespace mousepointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
} // namespace mousepointer

void SetMousePointer(int pointer);

// Shows the hourglass during its lifetime.
class Hourglass
{
public:
    Hourglass() { SetMousePointer(mousepointer::Hourglass); }
    ~Hourglass() { SetMousePointer(mousepointer::Default); }
    Q_DISABLE_COPY_MOVE(Hourglass)
};

// Executes the dialog with the usual mouse pointer. The dialog may be deleted with its owner when this returns.
int ExecModal(QDialog& dialog);
