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

    void SetSides(int pixels); // at both ends, for what lies over them: the caption keeps clear of them

    int Font3D() const { return m_font3D; } // 0 flat, 1 and 2 raised light and heavy, 3 and 4 inset light and heavy
    void SetFont3D(int effect);

    // The caption's font, as a whole.
    QFont CaptionFont() const { return m_font; }
    void SetCaptionFont(const QFont& font);

    std::uint32_t ForeColor() const { return m_foreColor; } // blue, green, red from high to low
    void SetForeColor(std::uint32_t color);

    // Paper and hairlines. Edges are the sides on which a hairline is drawn.
    void SetPaper(const QColor& paper);
    QColor Paper() const { return m_paper; }
    void SetEdges(Qt::Edges edges);
    // A thin frame inside the panel: today, the cell with the caret. An invalid colour takes it away.
    void SetFrame(const QColor& frame);
    QColor Frame() const { return m_frame; }
    void SetActive(bool active); // the accent's frame, in front of the other one
    bool IsActive() const { return m_active; }
    void SetHeld(bool held); // a broader frame of its own colour, in front of both
    bool IsHeld() const { return m_held; }

Q_SIGNALS:
    void Click();
    void DblClick();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void Rearrange();
    void Arrange();
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

    bool m_arranged = false; // whether these three hold for the present caption, font and size
    QString m_shown;
    QPoint m_origin;
    QRect m_captionArea;
};
