// One entry of the menu: its caption as it was given, whether it is enabled, and the command behind it. An entry whose
// command is not there stays disabled, whoever enables it.
#pragma once

#include <QString>

#include <functional>

class QAction;

class MenuItem
{
public:
    MenuItem() = default;
    explicit MenuItem(QAction* action) : m_action(action) {}

    // A path may hold "&", which a menu would take for a mnemonic: captions set here are shown to the letter.
    QString Caption() const { return m_caption; }
    void SetCaption(const QString& caption);

    bool Enabled() const { return m_enabled && m_click; }
    void SetEnabled(bool enabled);
    bool Visible() const;
    void SetVisible(bool visible);
    void SetChecked(bool checked);

    // literal names the command in the error log.
    void OnClick(std::function<void()> click, QLatin1StringView literal);
    QAction* Action() const { return m_action; }

private:
    QAction* m_action = nullptr;
    QString m_caption;
    bool m_enabled = true;
    bool m_click = false;
};
