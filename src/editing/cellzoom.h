// Zooms the notes of the month view and of the week view, each by its own percentage.
#pragma once

#include "editing/notezoom.h"

#include <QTimer>

class Cells;
class Foot;
class ViewMode;

class CellZoom : public QObject
{
    Q_OBJECT

public:
    CellZoom(Cells& cells, const ViewMode& viewMode, Foot& foot);

private:
    const IntSetting& Setting() const;
    void Show(int percent);
    void Step(int steps);
    void EndNotice();

    Cells& m_cells;
    const ViewMode& m_viewMode;
    Foot& m_foot;
    QTimer m_notice; // runs while the foot tells the percentage
    QString m_said;
};
