// The zoom of notes: how large a view shows them. Each view's percentage is a setting; the notes themselves stay as
// they are.
#pragma once

#include "platform/controls/wheelnotches.h"
#include "settings/settings.h"

#include <QObject>

int ReadZoom(const IntSetting& setting); // within the limits
// Moves the setting by so many steps, or to 100 % by 0. Returns the new percentage.
int StepZoom(const IntSetting& setting, int steps);
QString ZoomText(int percent); // for the person

// Ctrl with the wheel over an area; Ctrl with plus, minus or 0 in its window.
class ZoomKeys : public QObject
{
    Q_OBJECT

public:
    explicit ZoomKeys(QWidget& area); // the area owns it

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void Stepped(int steps); // larger if positive; 0 asks for 100 %

private:
    WheelNotches m_notches;
};
