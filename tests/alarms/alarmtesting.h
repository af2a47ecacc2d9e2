// A planner with alarms, and helpers for the alarm windows.
#pragma once

#include "alarms/alarmeventform.h"
#include "alarms/alarmform.h"
#include "alarms/alarmrecords.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "program.h"

#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QToolButton>

inline Alarm MakeAlarm(const char* date, const char* time, const char* note, const char* tune = "", bool silence = true)
{
    return {QString::fromLatin1(date), QString::fromLatin1(time), note, QString::fromLatin1(tune), silence};
}

inline void AddAlarms(const QList<Alarm>& alarms)
{
    for (const Alarm& alarm : alarms)
        subAddAlarmRecord(g_rsAlarm, alarm);
}

// The alarms in index order, one line each.
inline QStringList StoredAlarms()
{
    QStringList lines;
    Recordset alarms = g_dbPlanner.OpenTable(u"Alarm Table"_s);
    alarms.SetIndex(u"AlarmKey"_s);
    for (; !alarms.EOF_(); alarms.MoveNext()) {
        const Alarm alarm = CurrentAlarm(alarms);
        lines += QStringList({alarm.date, alarm.time, PlainText(alarm.note), alarm.tune}).join(u' ') +
                 (alarm.silence ? u" silent"_s : QString());
    }
    return lines;
}

// Types into a box from its start.
inline void TypeAt(QWidget& window, const char* box, const QString& text)
{
    auto& mask = In<MaskEdBox>(window, box);
    mask.setFocus();
    mask.setCursorPosition(0);
    QTest::keyClicks(&mask, text);
}

inline QString Shown(QWidget& window, const char* box)
{
    return In<MaskEdBox>(window, box).Text();
}

// The answer is empty for Ok, else the beginning of an entry of the menu Again in.
inline void Answer(AlarmEventForm& form, const QString& answer)
{
    if (answer.isEmpty()) return QTest::mouseClick(&In<QPushButton>(form, "btnOk"), Qt::LeftButton);
    for (QAction* choice : In<QPushButton>(form, "btnAgain").menu()->actions())
        if (choice->text().remove(u'&').startsWith(answer)) return choice->trigger();
}

// Lets the clock tick, and answers each window that it opens at once. Returns their notes, with "again" for an alarm
// that was put off before.
inline QStringList RungAt(const Program& program, const QDateTime& now, const QString& answer = {})
{
    constexpr int Enough = 4; // windows
    desktopclock::SetForTests(now);
    QStringList rung;
    for (int window = 0; window < Enough; ++window)
        OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
            const bool isAgain = In<QLabel>(form, "lblWhen").text().endsWith(u", put off"_s);
            rung += In<RichTextBox>(form, "tbNotes").Text() + (isAgain ? u" again"_s : QString());
            Answer(form, answer);
        });
    program.Tick("tmAlarm");
    DropAnswers();
    return rung;
}
