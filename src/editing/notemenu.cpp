#include "editing/notemenu.h"

#include "editing/corrections.h"
#include "editing/textstyles.h"
#include "platform/controls/named.h"
#include "platform/controls/postkey.h"
#include "platform/runtime/errortail.h"

#include <QMenu>

namespace {
struct KeyRow // a command that is a key of the box
{
    const char* name;
    const char* caption;
    int key;
    Qt::KeyboardModifiers modifiers;
    bool (*canRun)(const RichTextBox& box) = nullptr; // null: always
};
constexpr KeyRow KeyRows[] = {
    {"mnuCut", "Cut", Qt::Key_Delete, Qt::ShiftModifier},
    {"mnuCopy", "Copy", Qt::Key_Insert, Qt::ControlModifier},
    {"mnuPaste", "Paste", Qt::Key_Insert, Qt::ShiftModifier},
};
constexpr KeyRow AddedRows[] = {
    {"mnuUndo", "Undo\tCtrl+Z", Qt::Key_Z, Qt::ControlModifier, [](const RichTextBox& box) { return box.CanUndo(); }},
    {"mnuRedo", "Redo\tCtrl+Shift+Z", Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier,
     [](const RichTextBox& box) { return box.CanRedo(); }},
    {"mnuSelectAll", "Select All\tCtrl+A", Qt::Key_A, Qt::ControlModifier,
     [](const RichTextBox& box) { return !box.IsEmpty(); }},
};

struct StyleRow // a command that toggles a style
{
    const TextStyle& style;
    const char* caption;
    const char* shortcut;
};
constexpr StyleRow StyleRows[] = {
    {Bold, "Bold", "Ctrl+B"},
    {Italic, "Italic", "Ctrl+I"},
    {StrikeThru, "Strikethrough", "Ctrl+T"},
    {Underline, "Underline", "Ctrl+U"},
};

void AddKey(QMenu& menu, RichTextBox& box, const KeyRow& row)
{
    QAction* action =
        menu.addAction(QString::fromLatin1(row.caption), &box, [&box, &row] { PostKey(box, row.key, row.modifiers); });
    action->setObjectName(QString::fromLatin1(row.name));
    if (!row.canRun) return;
    QObject::connect(&menu, &QMenu::aboutToShow, action, [action, &box, &row] { action->setEnabled(row.canRun(box)); });
}

void AddStyle(QMenu& menu, RichTextBox& box, const StyleRow& row, const char* form)
{
    const QByteArray literal = QByteArray(" in ") + form + ", " + row.style.command + "_Click";
    QAction* action = menu.addAction(QString::fromLatin1(row.caption), &box, [&box, &row, literal] {
        ErrorTail{QLatin1StringView(literal)}([&] { Toggle(box, row.style); });
    });
    action->setObjectName(QString::fromLatin1(row.style.command));
    action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
    action->setShortcutContext(Qt::WidgetShortcut);
    box.addAction(action);
}

void AddOpenLink(QMenu& menu, RichTextBox& box)
{
    QAction* separator = menu.addSeparator();
    QAction* open = menu.addAction(u"Open Link\tCtrl+Enter"_s);
    open->setObjectName(u"mnuOpenLink"_s);
    QObject::connect(open, &QAction::triggered, &box, [open, &box] { box.OpenLink(open->data().toString()); });
    QObject::connect(&menu, &QMenu::aboutToShow, open, [separator, open, &box] {
        open->setData(box.LinkOfMenu());
        for (QAction* action : {separator, open})
            action->setVisible(!box.LinkOfMenu().isEmpty());
    });
}
} // namespace

QMenu* AddNoteMenu(RichTextBox& box, const char* form)
{
    auto* menu = Named(new QMenu(&box), "mnuRightMouse");
    for (const KeyRow& row : KeyRows)
        AddKey(*menu, box, row);
    menu->addSeparator();
    for (const StyleRow& row : StyleRows)
        AddStyle(*menu, box, row, form);
    menu->addSeparator();
    for (const KeyRow& row : AddedRows)
        AddKey(*menu, box, row);
    AddOpenLink(*menu, box);
    const auto popUp = [&box, menu](int button, const QPoint& at) {
        if (button != RichTextBox::RightButton) return;
        box.setFocus();
        OfferCorrections(*menu, box, at);
        menu->popup(at);
    };
    QObject::connect(&box, &RichTextBox::MouseDown, menu, Guarded(" in NoteMenu, MouseDown"_L1, popUp));
    return menu;
}
