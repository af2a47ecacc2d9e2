// Takes out of the shown cells what a picture for later must not have, and puts it back at its own end.
#pragma once

#include <QList>
#include <QPointer>
#include <QTextCursor>

class Cells;
class RichTextBox;
class SSPanel;
class ViewMode;

class MomentsLook
{
public:
    MomentsLook(Cells& cells, const ViewMode& viewMode);
    ~MomentsLook();
    Q_DISABLE_COPY_MOVE(MomentsLook)

private:
    void HideCaret(RichTextBox& box);
    void ShowCaret();

    SSPanel* m_today = nullptr;
    SSPanel* m_active = nullptr;
    RichTextBox* m_box = nullptr; // with the caret
    QTextCursor m_caret;
    int m_caretWidth = 0;
    int m_scrolled = 0;
};
