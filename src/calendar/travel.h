// Moves that no menu entry has. The wheel over the headings and the foot turns the page. Alt with an arrow goes to the
// cell beside, with Home and End to the first and the last day that is shown.
#pragma once

#include "platform/controls/wheelnotches.h"

#include <QObject>

struct BottomPanel;
class Cells;
class Navigation;
class QKeyEvent;
class QWidget;
class ViewMode;

class Travel : public QObject
{
    Q_OBJECT

public:
    // Watches the client area: controls pass on to it what they do not use.
    Travel(Cells& cells, const BottomPanel& bottom, const ViewMode& viewMode, Navigation& navigation);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TurnsPages(const QWidget* widget) const;
    bool Turn(const QWheelEvent& event);
    bool Step(const QKeyEvent& event);
    int Beside(int cell, int distance) const;
    int DayAtEnd(bool last) const;

    Cells& m_cells;
    const BottomPanel& m_bottom;
    const ViewMode& m_viewMode;
    Navigation& m_navigation;
    WheelNotches m_notches;
};
