// Asks how to open a planner. It has no Cancel: the question must be answered.
#pragma once

#include <QDialog>

#include <array>

class QRadioButton;

class OpenAsForm : public QDialog
{
    Q_OBJECT

public:
    explicit OpenAsForm(const QString& plannerPath, QWidget* owner = nullptr);

    bool Shared() const; // valid after exec()

    // Esc and the close box are ignored. exec() returns without an answer only when the program ends.
    void reject() override;

private:
    std::array<QRadioButton*, 2> m_opShared;
};
