// The common dialog: one object that keeps its properties from one use to the next.
#pragma once

#include <QString>

class QFileDialog;
class QWidget;
class SystemPrinter;

class CommonDialog
{
public:
    static constexpr int HideReadOnly = 4;
    static constexpr int FileMustExist = 4096;

    explicit CommonDialog(QWidget* owner) : m_owner(owner) {}

    int Flags = 0;
    QString DialogTitle;
    QString AcceptText;  // of the button that takes the choice; empty: "Open"
    QString InitDir;     // empty: where the last use ended, at first the user's documents
    QString Filter;      // "Planner Files (*.mdb)|*.mdb|All Files (*.*)|*.*"
    int FilterIndex = 1; // from 1
    bool CancelError = false;
    QString FileName;  // full path as chosen; may name a file that does not exist yet unless FileMustExist is set
    QString FileTitle; // its last component

    // 1 shows the Open dialog. Cancel raises DialogCancelled, "Cancel was selected.", if CancelError is true, and
    // otherwise leaves FileName as it was and gives false. Patterns match in any letter case.
    bool Action(int action);

    // The printer dialog, for the choice of printer and paper; what is chosen stays in the printer. Cancel as above.
    bool ShowPrinter(SystemPrinter& printer);

private:
    bool ShowOpen();
    void RaiseIfCancelled(bool accepted) const;
    void Take(const QFileDialog& dialog, const QStringList& filters);

    QWidget* m_owner;
    QString m_lastFolder; // of the last file chosen
};
