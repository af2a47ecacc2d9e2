// A panel with a caption: the frame of a calendar cell, a heading, a bar. Paper by nature: its colours come from its
// properties, never from the desktop's dark theme.
#pragma once

#include <QColor>
#include <QWidget>

#include <cstdint>

class SSPanel : public QWidget
{
    Q_OBJECT

public:
    // Where the caption stands. Captions at the top keep clear of a note below them.
    enum Alignment
    {
        LeftTop = 0,
        LeftMiddle = 1,
        LeftBottom = 2,
        RightTop = 3,
        RightMiddle = 4,
        RightBottom = 5,
        CenterTop = 6,
        CenterMiddle = 7,
        CenterBottom = 8
    };

    explicit SSPanel(QWidget* parent = nullptr);

    QString Caption() const { return m_caption; } // shown without the blanks around it, kept with them
    void SetCaption(const QString& caption);
    QString Tag;

    int CaptionAlignment() const { return m_alignment; } // one of Alignment; others read as LeftTop
    void SetCaptionAlignment(int alignment);

    void SetSides(int pixels) { Set(m_sides, pixels); } // at both ends, for what lies over them; no caption there

    // 0 flat, 1 and 2 raised light and heavy, 3 and 4 inset light and heavy; others read as flat.
    int Font3D() const { return m_font3D; }
    void SetFont3D(int effect);

    // The caption's font, as a whole.
    QFont CaptionFont() const { return m_font; }
    void SetCaptionFont(const QFont& font) { Set(m_font, font); }

    std::uint32_t ForeColor() const { return m_foreColor; } // blue, green, red from high to low
    void SetForeColor(std::uint32_t color) { Set(m_foreColor, color); }

    // Paper and hairlines. Edges are the sides on which a hairline is drawn.
    QColor Paper() const { return m_paper; }
    void SetPaper(const QColor& paper) { Set(m_paper, paper); }
    void SetEdges(Qt::Edges edges) { Set(m_edges, edges); }
    // A thin frame inside the panel: today, the cell with the caret. An invalid colour takes it away.
    QColor Frame() const { return m_frame; }
    void SetFrame(const QColor& frame) { Set(m_frame, frame); }
    bool IsActive() const { return m_active; } // the accent's frame, in front of the other one
    void SetActive(bool active) { Set(m_active, active); }
    bool IsHeld() const { return m_held; } // a broader frame of its own colour, in front of both
    void SetHeld(bool held) { Set(m_held, held); }

Q_SIGNALS:
    void Click();
    void DblClick();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    // Many properties are set to their old value; that paints nothing.
    template <typename Value>
    void Set(Value& property, const Value& value)
    {
        if (property == value) return;
        property = value;
        update();
    }
    void PaintLines(QPainter& painter) const;
    void PaintCaption(QPainter& painter) const;

    QString m_caption;
    QFont m_font;
    int m_alignment = LeftTop;
    int m_sides = 0;
    int m_font3D = 0;
    std::uint32_t m_foreColor = 0;
    QColor m_paper;
    QColor m_frame;
    bool m_active = false;
    bool m_held = false;
    Qt::Edges m_edges;
    bool m_pressed = false;
};
