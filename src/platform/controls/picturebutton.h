// A picture button: two elements of one picture, 0 raised and 1 pressed, of which at most one is visible. It is one
// stable widget, so that the release comes to it even when the element under the mouse was hidden by the press.
#pragma once

#include <QIcon>
#include <QWidget>

#include <array>

class PictureButton : public QWidget
{
    Q_OBJECT

public:
    // raised and pressed are SVG pictures of the resources. The accessible name is the tip of element 0.
    PictureButton(const QString& raised, const QString& pressed, QWidget* parent = nullptr);

    bool Visible(int element) const { return m_visible.at(static_cast<std::size_t>(element)); }
    void SetVisible(int element, bool visible); // the widget is hidden while both are
    void SetToolTip(int element, const QString& tip);
    void SetCaption(const QString& caption); // a word under the picture, for the sidebar

    QSize sizeHint() const override;

Q_SIGNALS:
    // element is the one that was visible when the mouse went down, 0 when a key did it. Space and Return press and
    // release too.
    void MouseDown(int element);
    void MouseUp(int element); // wherever the mouse is by then
    void Click(int element);   // the release was inside
    void MouseMove();
};
