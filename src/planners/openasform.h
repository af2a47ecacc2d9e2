// Asks how a planner is to be opened. There is no Cancel: the question must be answered.
#pragma once

#include <QDialog>

#include <array>

class QRadioButton;

class OpenAsForm : public QDialog
{
    Q_OBJECT

public:
    explicit OpenAsForm(const QString& plannerPath, QWidget* owner = nullptr);

    bool Shared() const; // after exec()

    // Esc and the close box do not answer the question. exec() comes back without an answer only when the program ends.
    void reject() override;

private:
    std::array<QRadioButton*, 2> m_opShared;
};
