// The least that a start can cost: a window of 35 text edits in a program that links only the toolkit.
#include "painting.h"
#include "startend.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    BareWindow window({0, 0});
    const EndAfterPainting end([&window](const QTextEdit& box) { return &box == window.Boxes().back(); });
    window.show();
    return QApplication::exec();
}
