// A small button beside a date box. It opens a calendar below the box, as Alt+Down in the box does. The picked day goes
// into the box in the box's own form.
#pragma once

#include "platform/controls/picturebutton.h"

#include <QDate>

class MaskEdBox;
class QCalendarWidget;

// A box wide enough for any date.
MaskEdBox* MakeDateBox(const char* name, const QString& mask);

class DateButton : public PictureButton
{
    Q_OBJECT

public:
    // form is the order of the box's parts, such as "MM/DD/YYYY". The tip is also the accessible name.
    DateButton(MaskEdBox* box, const QString& form, const QString& tip);

protected:
    bool eventFilter(QObject* box, QEvent* event) override; // it is enabled as the box is

private:
    void Open();
    QCalendarWidget* MakeCalendar() const;
    QPoint PlaceOf(const QSize& popup) const;

    MaskEdBox* m_box;
    QString m_format; // the form as QDate reads it
};
