// The menu tree of the main window, built from one table: names, captions, shortcuts. No behaviour.
#pragma once

#include <QAction>

#include <functional>
#include <map>

class QMenu;
class QMenuBar;

// One entry: its caption, whether it is enabled, and its command. Without a command it always stays disabled.
class MenuItem
{
public:
    explicit MenuItem(QAction* action) : m_action(action) {}

    // A path may contain "&", which a menu would read as a mnemonic: captions set here are shown literally.
    QString Caption() const { return m_caption; }
    void SetCaption(const QString& caption);

    void SetEnabled(bool enabled);
    bool Visible() const { return m_action->isVisible(); }
    void SetVisible(bool visible) { m_action->setVisible(visible); }
    void SetChecked(bool checked) { m_action->setChecked(checked); }

    // literal names the command in the error log.
    void OnClick(std::function<void()> click, QLatin1StringView literal);
    QAction* Action() const { return m_action; }

private:
    QAction* m_action;
    QString m_caption;
    bool m_enabled = true;
    bool m_click = false;
};

class Menus
{
public:
    explicit Menus(QMenuBar& bar);

    MenuItem& operator()(QLatin1StringView name);          // errors::NoSuchElement for an unknown name
    MenuItem& mnuMRU(int index);                           // 0 to 3
    QMenu& mnuRightMouse() const { return *m_rightMouse; } // the context menu; not in the bar

    // The entry with this shortcut, or null. Cells leave these keys to the menu even while the entry is disabled.
    const MenuItem* OfShortcut(const QKeySequence& key) const;

private:
    std::map<QString, MenuItem> m_items;
    QMenu* m_rightMouse = nullptr;
};
