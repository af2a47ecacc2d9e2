// A dialog that waits for a person.
#pragma once

#include "platform/desktop/mousepointer.h"

#include <QDialog>

// Its answer, with the usual mouse pointer meanwhile: the person is to choose now, not to wait. The dialog may be gone
// when it ends, as it goes with its owner.
inline int ExecModal(QDialog& dialog)
{
    const int pointer = MousePointer();
    SetMousePointer(mousepointer::Default);
    const int answer = dialog.exec();
    SetMousePointer(pointer);
    return answer;
}
