// A bar of picture buttons, each known by its key. A button has a value (up or down) and a mixed state; clicking does
// not change them by itself, the program sets them.
#pragma once

#include "platform/desktop/pressedbyreturn.h"

#include <QPointer>
#include <QRubberBand>
#include <QToolButton>
#include <QWidget>

#include <map>
#include <optional>
#include <vector>

class ToolbarButton : public PressedByReturn<QToolButton>
{
    Q_OBJECT

public:
    explicit ToolbarButton(QWidget* parent = nullptr); // as large as those of a bar
    ToolbarButton(const QSize& size, const QSize& picture, QWidget* parent);

    int Value() const { return m_value; } // 0 up, 1 down
    void SetValue(int value);
    bool MixedState() const { return m_mixed; } // greyed, for a mixed selection
    void SetMixedState(bool mixed);
    void SetPicture(const QString& file) { m_file = file; } // SVG; read when the button is first painted

protected:
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override {} // the program sets the value, a click never does

private:
    void PaintGround(QPainter& painter) const;
    const QPixmap& Picture();

    int m_value = 0;
    bool m_mixed = false;
    QString m_file;
    QPixmap m_picture; // at the screen's pixel ratio
};

class Toolbar : public QWidget
{
    Q_OBJECT

public:
    explicit Toolbar(QWidget* parent = nullptr);

    // Buttons stand in the order of these calls. icon is an SVG picture of the resources.
    void AddButton(const QString& key, const QString& tip, const QString& icon);
    void AddSeparator();
    void AddPlaceholder(const QString& key); // room for another control: an empty widget
    // Lays a control of the bar over its placeholder for good, as wide as it wants to be.
    void Lay(const QString& key, QWidget* control);
    // The width that the bar has. Where its controls want more they give way, the rightmost first, each down to its
    // least width; a bar that is still too wide is cut off on the right.
    void SetRoom(int width);

    ToolbarButton& Buttons(const QString& key) const; // 35601 if there is none

    QSize sizeHint() const override;

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
    void Add(const QString& key, QWidget* item);
    QWidget& Item(const QString& key) const;
    void Fit();
    int Missing() const;
    void BeginDrag();
    void EndDrag();

    std::map<QString, QWidget*> m_items;
    struct Laid
    {
        QWidget* Place;
        QWidget* Control;
    };
    std::vector<Laid> m_laid;
    int m_room = QWIDGETSIZE_MAX;
    std::optional<QPoint> m_pressed; // where the mouse went down on a free area
    QPointer<QRubberBand> m_outline; // shows where the bar would go; there only while it is dragged
};
