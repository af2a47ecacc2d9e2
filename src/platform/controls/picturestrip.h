// A read-only text of pictures, which can be dragged out of it. Files can be dropped onto it.
#pragma once

#include "platform/richtext/richtextbox.h"

#include <memory>

class QMimeData;

class PictureStrip : public RichTextBox
{
    Q_OBJECT

public:
    explicit PictureStrip(QWidget* parent = nullptr);

    void SetBackColor(const QColor& color);

Q_SIGNALS:
    void Shown();
    // Before a drag or copy of the selection. A handler fills data, or nothing happens; cursor is the mouse cursor of
    // the drag.
    void OLEStartDrag(QMimeData& data, QPixmap& cursor);
    void OLECompleteDrag();
    void OLEDragDrop(const QStringList& files); // paths

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    int PictureAt(const QPoint& point) const;
    int PictureFrom(int place, int step) const;
    void SelectAlone(int picture);
    bool SelectionHas(const QPoint& point) const;
    std::unique_ptr<QMimeData> Carried(QPixmap& cursor);
    void BeginDrag();

    std::optional<QPoint> m_pressed; // press position on something to drag
};
