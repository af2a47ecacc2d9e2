// Takes out of the shown cells what a picture for later must not have, and puts it back at its own end.
#pragma once

#include <QTextCursor>

class Cells;
class QWidget;
class RichTextBox;
class SSPanel;
class ViewMode;

class MomentsLook
{
public:
    // lblDateDiff: lies over the cells when the mouse has been there; month: with notices behind its title
    MomentsLook(Cells& cells, const ViewMode& viewMode, QWidget& lblDateDiff, SSPanel& month);
    ~MomentsLook();
    Q_DISABLE_COPY_MOVE(MomentsLook)

private:
    void HideCaret(RichTextBox& box);
    void ShowCaret();

    QWidget& m_lblDateDiff;
    const bool m_hadLabel;
    SSPanel& m_month;
    const QString m_title;
    SSPanel* m_today = nullptr;
    SSPanel* m_active = nullptr;
    SSPanel* m_held = nullptr;
    RichTextBox* m_box = nullptr; // with the caret
    QTextCursor m_caret;
    int m_caretWidth = 0;
    int m_scrolled = 0;
};
