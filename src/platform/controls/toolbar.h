// A bar of picture buttons with keys. A button has a value (up or down) and a mixed state; only the program sets them,
// a click does not.
#pragma once

#include "platform/desktop/pressedbyreturn.h"

#include <QPointer>
#include <QRubberBand>
#include <QToolButton>

#include <map>
#include <optional>
#include <vector>

class QBoxLayout;

class ToolbarButton : public PressedByReturn<QToolButton>
{
    Q_OBJECT

public:
    // tip is the accessible name too.
    ToolbarButton(const QSize& size, const QSize& picture, const QString& icon, const QString& tip, QWidget* parent);

    int Value() const { return isChecked() ? 1 : 0; } // 0 up, 1 down
    void SetValue(int value);
    bool MixedState() const { return m_mixed; } // greyed, for a mixed selection
    void SetMixedState(bool mixed);

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override;
    void nextCheckState() override {} // only the program sets the value

private:
    bool m_mixed = false;
};

class Toolbar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int ElementNotFound = 35601; // error number of Buttons()
    explicit Toolbar(QWidget* parent = nullptr);

    // Items appear in the order of these calls. icon is an SVG resource.
    void AddButton(const QString& key, const QString& tip, const QString& icon);
    void AddSeparator();
    void AddControl(QWidget* control); // at its size hint; keeps its place while hidden
    // The available width. If the controls want more, they shrink to their least width, the rightmost first. A bar that
    // is still too wide is cut off.
    void SetRoom(int width);

    ToolbarButton& Buttons(const QString& key) const; // ElementNotFound

Q_SIGNALS:
    void ButtonClick(const QString& key);
    // A drag of the bar began on a free area of it and ended at this point of the parent. Esc cancels it.
    void Dropped(const QPoint& parentPosition);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override; // the whole program's, while the bar is dragged

private:
    void Add(QWidget* item);
    void Fit();
    void BeginDrag();
    void EndDrag();

    QBoxLayout* m_row;
    std::map<QString, ToolbarButton*> m_buttons;
    std::vector<QWidget*> m_controls;
    int m_room = QWIDGETSIZE_MAX;
    std::optional<QPoint> m_pressed; // where the mouse went down on a free area
    QPointer<QRubberBand> m_outline; // shows where the bar would go; there only while it is dragged
};
