// A picture button: the elements of one picture, of which at most one is visible: 0 raised and 1 pressed unless told
// otherwise. It is one stable widget, so that the release comes to it even when the element under the mouse was hidden
// by the press.
#pragma once

#include <QIcon>
#include <QPushButton>

#include <vector>

class PictureButton : public QPushButton
{
    Q_OBJECT

public:
    static constexpr int NoElement = -1;

    // As many elements as there are pictures, which are SVG pictures of the resources; pressedElement is the one that
    // looks pressed: the view that is shown, a lock that is held. The first one is visible. The text of the button is a
    // word under the picture, the accessible name is the tip of the visible one.
    explicit PictureButton(const QStringList& pictures, int pressedElement = 1, QWidget* parent = nullptr);

    bool Visible(int element) const { return element == m_shown; }
    void ShowElement(int element); // this one and no other; NoElement hides the widget
    void SetToolTip(int element, const QString& tip);
    void SetFramed(bool framed) { setFlat(!framed); } // a thin frame at rest, for a button that stands alone on a band

    QSize minimumSizeHint() const override; // the picture alone; a text shows only where it fits

Q_SIGNALS:
    // element is the one that was visible when the button went down, by the mouse or by Space or Return.
    void MouseDown(int element);
    void MouseUp(int element); // wherever the mouse is by then
    void Click(int element);   // the release was inside
    void MouseMove();

protected:
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void nextCheckState() override {} // the program shows the elements, a click never does

private:
    void Follow();
    void LetGo();

    struct Element
    {
        QIcon picture;
        QString tip;
    };
    std::vector<Element> m_elements;
    int m_pressedElement;
    int m_shown = 0;
    int m_pressed = 0; // the element that was visible when the button went down
};
