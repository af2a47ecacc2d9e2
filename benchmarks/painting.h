// The bare window that floors are painted in, and the wait for what is painted to be on the screen.
#pragma once

#include <QTextEdit>

#include <vector>

inline constexpr QSize WindowSize(1240, 820);
inline constexpr int BoxCount = 35;
inline constexpr int WeekBoxCount = 7;

// 35 text edits where the planner has its boxes, and nothing else.
class BareWindow : public QWidget
{
public:
    explicit BareWindow(QPoint place);
    const std::vector<QTextEdit*>& Boxes() const { return m_boxes; }
    void PlaceBoxes(int rows); // 5 for the month; 1 for the week, whose boxes are the first seven

protected:
    void resizeEvent(QResizeEvent*) override { PlaceBoxes(m_rows); }

private:
    int m_rows = 5;
    std::vector<QTextEdit*> m_boxes;
};

// Counts the paintings of text boxes, so that a step that painted nothing cannot pass for a quick one.
class PaintCount : public QObject
{
public:
    void Watch(QTextEdit& box) { box.viewport()->installEventFilter(this); }
    int Take() { return std::exchange(m_count, 0); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int m_count = 0;
};

// Paints what waits for it and returns when the X server has drawn it.
void PaintNow();
