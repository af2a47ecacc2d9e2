// The calendar of a date box.
#pragma once

#include "platform/controls/maskedbox.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QTest>

// Opens it by Alt+Down; null if it does not come.
inline QCalendarWidget* OpenedCalendar(MaskEdBox& box)
{
    QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
    const QWidget* popup = QApplication::activePopupWidget();
    return popup ? popup->findChild<QCalendarWidget*>() : nullptr;
}

// Opens it, moves by the key and picks with Return.
inline void PickDate(MaskEdBox& box, Qt::Key move)
{
    QCalendarWidget* calendar = OpenedCalendar(box);
    QVERIFY(calendar);
    QTest::keyClick(calendar->focusProxy(), move);
    QTest::keyClick(calendar->focusProxy(), Qt::Key_Return);
    QVERIFY(!QApplication::activePopupWidget());
}
