// Notes that a run of the program left unsaved when it ended, day by day beside what the planner holds: which of them
// are to be taken.
#pragma once

#include "notes/unsavednotes.h"

#include <QDialog>

#include <vector>

class QListWidget;
class QListWidgetItem;
class RichTextBox;

struct FoundNote
{
    QString key;
    UnsavedNote note;
    QByteArray stored; // as the planner holds the day
};

class RecoveryForm : public QDialog
{
    Q_OBJECT

public:
    RecoveryForm(std::vector<FoundNote> notes, QWidget* owner);

    // After exec() was Accepted. Rejected decides nothing: the question comes again.
    bool Takes(std::size_t number) const;

private:
    QWidget* MakeList();
    QWidget* MakeSheet(const QString& caption, const char* name, RichTextBox*& box);
    QWidget* MakeFoot();
    void TellTick(const QListWidgetItem* item);
    void ShowNote(int row);

    const std::vector<FoundNote> m_notes;
    QListWidget* m_lstDays = nullptr;
    RichTextBox* m_tbStored = nullptr;
    RichTextBox* m_tbFound = nullptr;
};
