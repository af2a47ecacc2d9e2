// Lets a person choose which notes, left unsaved when a run ended, go into the planner. Shows each beside the
// planner's.
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
    QByteArray stored; // as the planner has it
};

class RecoveryForm : public QDialog
{
    Q_OBJECT

public:
    RecoveryForm(std::vector<FoundNote> notes, QWidget* owner);

    // Valid after exec() returned Accepted. Rejected decides nothing: the question comes again.
    bool Takes(std::size_t number) const;

private:
    void MakeList();
    QWidget* MakeFoot();
    void TellTick(const QListWidgetItem* item);
    void ShowNote(int row);

    const std::vector<FoundNote> m_notes;
    QListWidget* m_lstDays = nullptr;
    RichTextBox* m_tbStored = nullptr;
    RichTextBox* m_tbFound = nullptr;
};
