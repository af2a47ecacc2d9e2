#include "editing/shortcutfilter.h"

#include "hall/cells.h"
#include "hall/menus.h"

#include <QKeyEvent>

ShortcutFilter::ShortcutFilter(Cells& cells, const Menus& menus) : m_menus(menus)
{
    cells.SetBoxFilter(this);
}

bool ShortcutFilter::eventFilter(QObject* box, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool mayBeShortcut = key->modifiers() & Qt::ControlModifier || key->key() >= Qt::Key_F1;
    if (!mayBeShortcut || !m_menus.OfShortcut(QKeySequence(key->keyCombination()))) return false;
    // An ignored override goes on to the menu. A key press follows only if the menu does not take the key.
    if (event->type() == QEvent::ShortcutOverride) event->ignore();
    if (auto* text = qobject_cast<RichTextBox*>(box)) text->ForgetDirectionKeys(); // they are part of the shortcut
    return true;
}
