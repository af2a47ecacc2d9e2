// A panel with a caption: the frame of a calendar cell, a heading, a bar. Its colours come from its properties, never
// from the desktop's theme.
#pragma once

#include <QColor>
#include <QWidget>

#include <cstdint>

class SSPanel : public QWidget
{
    Q_OBJECT

public:
    // The caption's place. Captions at the top keep clear of a note below.
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

    QString Caption() const { return m_caption; } // shown without surrounding blanks
    void SetCaption(const QString& caption);
    QString Tag;

    int CaptionAlignment() const { return m_alignment; } // an Alignment; other values count as LeftTop
    void SetCaptionAlignment(int alignment);

    void SetSides(int pixels)
    {
        Set(m_sides, pixels);
    } // covered by other controls at both ends; the caption keeps clear of them

    // 0 flat, 1 and 2 raised (light, heavy), 3 and 4 inset (light, heavy); other values count as flat.
    int Font3D() const { return m_font3D; }
    void SetFont3D(int effect);

    QFont CaptionFont() const { return m_font; }
    void SetCaptionFont(const QFont& font) { Set(m_font, font); }

    std::uint32_t ForeColor() const { return m_foreColor; } // blue, green, red from high to low
    void SetForeColor(std::uint32_t color) { Set(m_foreColor, color); }

    // The background, and the sides with a hairline.
    QColor Paper() const { return m_paper; }
    void SetPaper(const QColor& paper) { Set(m_paper, paper); }
    void SetEdges(Qt::Edges edges) { Set(m_edges, edges); }
    // A thin frame inside the panel, for today; none if invalid.
    QColor Frame() const { return m_frame; }
    void SetFrame(const QColor& frame) { Set(m_frame, frame); }
    bool IsActive() const { return m_active; } // the frame of the cell with the caret, over Frame()
    void SetActive(bool active) { Set(m_active, active); }
    bool IsHeld() const { return m_held; } // the frame of a locked cell, over both
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
    // Properties are often set to their present value, which must not repaint.
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
