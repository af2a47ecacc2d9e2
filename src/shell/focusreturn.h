// The keyboard's ways to the menus and back. F10 opens the first menu, since not every menu has a letter. The focus
// returns to the text that had it last: from the menu bar, where a window opened by a key would leave it after its end,
// and from the bars by Esc. An open dialog keeps it.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QMainWindow;

class FocusReturn : public QObject
{
public:
    explicit FocusReturn(QMainWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LeadToDialog();
    void Follow(const QWidget* before, QWidget* now);
    bool IsInWindow(const QWidget* widget) const;

    QMainWindow& m_window;
    QPointer<QWidget> m_text;
};
