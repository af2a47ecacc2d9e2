// The card that lies on the calendar while no planner is open: two buttons and the planners used last. It runs no
// command itself.
#pragma once

#include "settings/settings.h"

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
    static constexpr int MostPlanners = int(std::size(settings::OnCard));

    explicit StartCard(QWidget* client); // hidden; its focus is that of the first button

    void SetPlanners(const QStringList& paths); // newest first
    // Moves into the middle of the area. Where that is low, the oldest planners are left out; the focus of one of them
    // goes to the last that is shown.
    void Place(const QRect& area);
    bool HasFocus() const; // one of its buttons or rows; also while another window is active

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
    QWidget& LastShown() const; // row, or the first button

    QBoxLayout* m_head;
    QBoxLayout* m_buttons;
    QLabel* m_lblRecent;
    std::array<PlannerRow*, MostPlanners> m_rows = {};
};
