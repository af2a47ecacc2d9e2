#include "shell/focusreturn.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QTextEdit>
#include <QTimer>

namespace {
constexpr int DesktopsPause = 200; // milliseconds; a desktop that is busy with the window may ignore the first try
}

FocusReturn::FocusReturn(QMainWindow& window) : m_window(window)
{
    auto* openMenus = new QShortcut(Qt::Key_F10, &window);
    connect(openMenus, &QShortcut::activated, this,
            [bar = window.menuBar()] { bar->setActiveAction(bar->actions().front()); });
    connect(qApp, &QApplication::focusChanged, this, &FocusReturn::Follow);
    qApp->installEventFilter(this);
}

bool FocusReturn::IsInWindow(const QWidget* widget) const
{
    return widget && widget->window() == &m_window;
}

void FocusReturn::Follow(const QWidget* before, QWidget* now)
{
    if (!IsInWindow(now)) return;
    if (qobject_cast<QTextEdit*>(now)) m_text = now;
    if (now == m_window.menuBar() && !IsInWindow(before) && m_text) m_text->setFocus();
}

// The window takes the keyboard also when a control of it takes the focus between two dialogs. The second would be
// deaf.
void FocusReturn::LeadToDialog()
{
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal && modal->isVisible() && m_window.isActiveWindow()) modal->activateWindow();
}

bool FocusReturn::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::WindowActivate)
        for (const int wait : {0, DesktopsPause})
            QTimer::singleShot(wait, this, &FocusReturn::LeadToDialog);
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
    const auto* control = qobject_cast<QWidget*>(watched);
    if (!IsInWindow(control) || control != m_window.focusWidget() || control == m_window.menuBar()) return false;
    if (!m_text || !m_text->isVisible() || control == m_text) return false;
    m_text->setFocus();
    return true;
}
