// A bar of picture buttons, each known by its key. A button has a value (up or down) and a mixed state; clicking does
// not change them by itself, the program sets them.
#pragma once

#include <QToolButton>
#include <QWidget>

#include <map>

class ToolbarButton : public QToolButton
{
    Q_OBJECT

public:
    explicit ToolbarButton(QWidget* parent = nullptr);

    int Value() const { return m_value; } // 0 up, 1 down
    void SetValue(int value);
    bool MixedState() const { return m_mixed; } // greyed, for a mixed selection
    void SetMixedState(bool mixed);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_value = 0;
    bool m_mixed = false;
};

class Toolbar : public QWidget
{
    Q_OBJECT

public:
    explicit Toolbar(QWidget* parent = nullptr);

    // Buttons stand in the order of these calls. icon is an SVG picture of the resources.
    void AddButton(const QString& key, const QString& tip, const QString& icon);
    void AddSeparator();
    // Room for another control, which is laid over it: an empty widget of the given width in logical pixels.
    void AddPlaceholder(const QString& key, int width);

    ToolbarButton& Buttons(const QString& key) const; // 35601 if there is none
    QWidget& Placeholder(const QString& key) const;   // 35601
    QStringList Keys() const;                         // in order, placeholders too

    QSize sizeHint() const override;

Q_SIGNALS:
    void ButtonClick(const QString& key);
    // A drag of the bar began on a free area of it and ended at this point of the parent.
    void Dropped(const QPoint& parentPosition);
};
