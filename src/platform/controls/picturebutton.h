// A button with several pictures (elements), of which at most one is visible; usually 0 is raised and 1 pressed. It is
// one widget, so it gets the release even if the press has changed the element.
#pragma once

#include <QIcon>
#include <QPushButton>

#include <vector>

class PictureButton : public QPushButton
{
    Q_OBJECT

public:
    static constexpr int NoElement = -1;

    // One element per picture, which are SVG resources; element 0 is visible first. pressedElement is the one that
    // looks pressed: the shown view, a held lock. The button's text is below the picture; its accessible name is the
    // tip of the visible element.
    explicit PictureButton(const QStringList& pictures, int pressedElement = 1, QWidget* parent = nullptr);

    bool Visible(int element) const { return element == m_shown; }
    void ShowElement(int element); // hides the others; NoElement hides the widget
    void SetToolTip(int element, const QString& tip);
    void SetFramed(bool framed) { setFlat(!framed); } // a frame at rest, for a button that is alone on a band

    QSize minimumSizeHint() const override; // the picture; the text is shown only if it fits

Q_SIGNALS:
    // element was visible when the button went down, by mouse, Space or Return.
    void MouseDown(int element);
    void MouseUp(int element); // also outside the button
    void Click(int element);   // the release was inside
    void MouseMove();

protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionButton* option) const override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void nextCheckState() override {} // only the program changes elements

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
    int m_pressed = 0; // visible when the button went down
};
