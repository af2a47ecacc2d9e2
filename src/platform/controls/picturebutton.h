// A picture button: the elements of one picture, of which at most one is visible: 0 raised and 1 pressed unless told
// otherwise. It is one stable widget, so that the release comes to it even when the element under the mouse was hidden
// by the press.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <optional>
#include <vector>

class PictureButton : public QWidget
{
    Q_OBJECT

public:
    // raised and pressed are SVG pictures of the resources. The accessible name is the tip of the visible one.
    PictureButton(const QString& raised, const QString& pressed, QWidget* parent = nullptr);
    // As many elements as there are pictures; pressedElement is the one that looks pressed. The first one is visible.
    explicit PictureButton(const QStringList& pictures, int pressedElement = 1, QWidget* parent = nullptr);

    bool Visible(int element) const { return m_elements.at(static_cast<std::size_t>(element)).visible; }
    void SetVisible(int element, bool visible); // the widget is hidden while all are
    void ShowElement(int element);              // this one and no other
    void SetToolTip(int element, const QString& tip);
    void SetCaption(const QString& caption); // a word under the picture, for the sidebar
    void SetFramed(bool framed);             // a thin frame at rest, for a button that stands alone on a band
    // The view that is shown, a lock that is held.
    bool LooksPressed() const { return ShownElement() == m_pressedElement; }
    bool IsPressed() const { return m_downElement.has_value(); } // by mouse or key, at this moment
    void Press();                                                // as a key does it: presses, releases and clicks

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override; // the picture alone; a caption shows only where it fits

Q_SIGNALS:
    // element is the one that was visible when the mouse went down, 0 when a key did it. Space and Return press and
    // release too.
    void MouseDown(int element);
    void MouseUp(int element); // wherever the mouse is by then
    void Click(int element);   // the release was inside
    void MouseMove();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Element
    {
        QString file;
        QPixmap picture; // rendered when first shown
        QString tip;
        bool visible = false;
    };

    bool IsAnyVisible() const;
    int ShownElement() const; // 0 if none is visible
    void Tell();
    void Follow();
    void Down(int element, int key);
    void Up(bool click);
    void PaintGround(QPainter& painter);
    const QPixmap& Picture(int number);

    std::vector<Element> m_elements;
    int m_pressedElement;
    QString m_caption;
    bool m_framed = false;
    std::optional<int> m_downElement; // while pressed: the element that was visible
    int m_downKey = 0;                // the key that pressed it, 0 for the mouse
};
