// Asks how to open a planner. It has no Cancel: the question must be answered.
#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QLayout;
class QRadioButton;

class OpenAsForm : public QDialog
{
    Q_OBJECT

public:
    explicit OpenAsForm(const QString& plannerPath, QWidget* owner = nullptr);

    // Valid after exec().
    bool Shared() const;
    bool AtEveryStart() const;

    // Esc and the close box are ignored. exec() returns without an answer only when the program ends.
    void reject() override;

private:
    void AddOption(QLayout& options, int index, const QString& meaning);

    std::array<QRadioButton*, 2> m_opShared;
    QCheckBox* m_chkAtEveryStart;
};
