// The bare window for the floors' painting, and the wait until a painting is on the screen.
#pragma once

#include <QTextEdit>

#include <vector>

inline constexpr QSize WindowSize(1240, 820);
inline constexpr int BoxCount = 35;
inline constexpr int WeekBoxCount = 7;

// Text edits at the places of the planner's boxes: 35 for the month and, if wanted, 7 for the week.
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

// Counts paints of text boxes, so that a step that paints nothing cannot pass for a fast one.
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

// Runs pending paints and returns when the X server has drawn them.
void PaintNow();
