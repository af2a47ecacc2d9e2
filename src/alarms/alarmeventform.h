// The window of an alarm that rings: its note, in front of everything.
#pragma once

#include <QDialog>

class QScreen;

class AlarmEventForm : public QDialog
{
    Q_OBJECT

public:
    AlarmEventForm(const QByteArray& note, QScreen* screen);

    // Plays the tune once the window is shown, so that what is told of a tune that cannot be played stands over it.
    void PlayWhenShown(const QString& tune);
    void subStopMusic(const QString& sTune);

private:
    void subPlayMusic(const QString& sTune);
};
