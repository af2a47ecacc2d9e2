// The common dialog. Its properties stay from one use to the next.
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
    QString AcceptText;  // text of the accept button; empty: "Open"
    QString InitDir;     // empty: the folder of the last use, at first the user's documents
    QString Filter;      // "Planner Files (*.mdb)|*.mdb|All Files (*.*)|*.*"
    int FilterIndex = 1; // from 1
    bool CancelError = false;
    QString FileName;  // full path; the file may not exist unless FileMustExist is set
    QString FileTitle; // last component of FileName

    // Action 1 shows the Open dialog. On Cancel it raises DialogCancelled, "Cancel was selected.", if CancelError is
    // true, else leaves FileName and returns false. Patterns ignore letter case.
    bool Action(int action);

    // Shows the dialog for printer and paper; the printer keeps the choice. Cancel as above.
    bool ShowPrinter(SystemPrinter& printer);

private:
    bool ShowOpen();
    void RaiseIfCancelled(bool accepted) const;
    void Take(const QFileDialog& dialog, const QStringList& filters);

    QWidget* m_owner;
    QString m_lastFolder; // of the last chosen file
};
