// The card that lies on the calendar while no planner is open: two buttons and the planners used last. It runs no
// command itself.
#pragma once

#include <QWidget>

#include <array>

class PlannerRow;
class QBoxLayout;
class QLabel;
class QPushButton;

class StartCard : public QWidget
{
    Q_OBJECT

public:
    static constexpr int MostPlanners = 5;

    explicit StartCard(QWidget* client); // hidden; its focus is that of the first button

    void SetPlanners(const QStringList& paths); // newest first
    // Moves into the middle of the area. Where that is low, the oldest planners are left out.
    void Place(const QRect& area);

Q_SIGNALS:
    void New();
    void Open();
    void OpenPlanner(const QString& path);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPushButton* AddButton(const char* name, const QString& text);
    void AddRows(QLayout& column);
    void SetSpaces(int margin, int gap);

    QBoxLayout* m_head;
    QBoxLayout* m_buttons;
    QLabel* m_lblRecent;
    std::array<PlannerRow*, MostPlanners> m_rows = {};
};
