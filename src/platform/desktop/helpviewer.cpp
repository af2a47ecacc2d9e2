#include "platform/desktop/helpviewer.h"

#include "platform/desktop/helpwindow.h"

#include <QPointer>

bool ShowHelp(QWidget* owner, const QString& file, HelpCommand command)
{
    static QPointer<HelpWindow> shown; // its owner may take it along
    if (shown && shown->File() != file) delete shown;
    if (!shown) {
        std::unique_ptr<HelpBook> book = HelpBook::Open(file);
        if (!book) return false;
        shown = new HelpWindow(owner->window(), file, std::move(book));
    }
    shown->Run(command);
    return true;
}
