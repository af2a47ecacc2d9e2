// A strip of pictures, each a character of a text that cannot be edited. Pictures are dragged out of it, files are
// dropped onto it.
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
    // The selection is about to be dragged or copied. The handler starts the drag by filling data; cursor is the
    // mouse's picture.
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

    std::optional<QPoint> m_pressed; // where the mouse was pressed on something it can drag
};
