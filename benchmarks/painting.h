// The bare window that floors are painted in, and the wait for what is painted to be on the screen.
#pragma once

#include <QTextEdit>

#include <vector>

inline constexpr QSize WindowSize(1240, 820);
inline constexpr int BoxCount = 35;
inline constexpr int WeekBoxCount = 7;

// Text edits where the planner has its boxes, 35 for the month and, if wanted, then 7 for the week, and nothing else.
class BareWindow : public QWidget
{
public:
    explicit BareWindow(QPoint place, int boxes = BoxCount);
    const std::vector<QTextEdit*>& Boxes() const { return m_boxes; }
    void ShowWeek(bool week);

protected:
    void resizeEvent(QResizeEvent*) override;

private:
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
