// A strip of tabs over a client area, in which the program itself places the pages.
#pragma once

#include <QWidget>

class QTabBar;

class TabStrip : public QWidget
{
    Q_OBJECT

public:
    explicit TabStrip(QWidget* parent = nullptr);

    void AddTab(const QString& caption, const QString& tip);
    int SelectedIndex() const; // 0 is the first
    QRect ClientRect() const;  // below the tabs, in the strip's own coordinates
    QSize sizeHint() const override;

Q_SIGNALS:
    void Click(); // another tab was chosen, by mouse or key

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QTabBar* m_tabs;
};
