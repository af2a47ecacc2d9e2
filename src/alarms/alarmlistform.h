// A list of alarms, missed or coming: the day, the time and the first line of each. It leads to the day.
#pragma once

#include "alarms/alarmrecords.h"

#include <QDateTime>
#include <QDialog>

#include <functional>

class QPushButton;
class QTreeWidget;

struct ListedAlarm
{
    QDateTime minute; // the wall minute in which it rings or would have rung
    Alarm alarm;
    bool operator==(const ListedAlarm&) const = default;
};

struct AlarmListNeeds
{
    std::function<void(const QDate& day)> goTo;
    bool isFar = false; // the way to the day leaves the list, so that it takes a double click
    // Null where nothing can be printed.
    std::function<void(QWidget* owner, const std::vector<ListedAlarm>& listed)> print;
    // Puts an alarm off; false after a message. Null where alarms cannot be put off.
    std::function<bool(const Alarm& alarm, const QDateTime& next)> putOff;
};

class AlarmListForm : public QDialog
{
    Q_OBJECT

public:
    AlarmListForm(QWidget* owner, const QString& title, const AlarmListNeeds& needs); // empty

    void Add(const std::vector<ListedAlarm>& listed); // behind the rows, unless they are there already
    const std::vector<ListedAlarm>& Listed() const { return m_listed; }

    void ShowInFront();
    void Retire(); // hides it, and deletes it when no dialog of its is open any more

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeList();
    QPushButton* MakeAgain();
    void Choose();
    void PutOff(const QDateTime& next);

    const AlarmListNeeds m_needs;
    std::vector<ListedAlarm> m_listed;
    QTreeWidget* m_lstAlarms = nullptr;
};

QString ShownTimeIn(const ListedAlarm& listed); // "9:05 AM"
