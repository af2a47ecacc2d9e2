#include "platform/desktop/commondialog.h"

#include "platform/desktop/filesystem.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/systemprinter.h"
#include "platform/desktop/windowplace.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>

namespace {
constexpr int InvalidProcedureCall = 5;

// A typed name finds the existing file in any letter case, as everywhere in the program.
class OpenDialog : public QFileDialog
{
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override
    {
        const QStringList files = selectedFiles();
        auto* const edit = findChild<QLineEdit*>(u"fileNameEdit"_s);
        if (edit && files.size() == 1 && !QFileInfo::exists(files.first())) {
            const QString found = filesystem::Find(files.first());
            if (!found.isEmpty()) edit->setText(found);
        }
        QFileDialog::accept();
    }
};

// Converts "Name (*.x)|*.x;*.y|..." to the toolkit's "Name (*.x *.y)". "*.*" means every file, also without a dot.
QStringList NameFilters(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        for (QString& pattern : patterns)
            pattern = pattern.trimmed() == u"*.*" ? u"*"_s : pattern.trimmed();
        filters += parts[i].section(u'(', 0, 0).trimmed() + u" ("_s + patterns.join(u' ') + u')';
    }
    return filters.isEmpty() ? QStringList{u"All Files (*)"_s} : filters;
}

QString FirstFolder(const QStringList& folders)
{
    for (const QString& folder : folders) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
    }
    return QDir::homePath();
}

// Makes room for the columns of the file list, within the screen.
void Enlarge(QFileDialog& dialog)
{
    const QSize screen = dialog.screen()->availableSize();
    dialog.resize(dialog.sizeHint().expandedTo({860, 540}).boundedTo(screen * 0.9));
    if (auto* const list = dialog.findChild<QTreeView*>(u"treeView"_s)) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    constexpr int Places = 160; // the default cuts folder names off
    if (auto* const halves = dialog.findChild<QSplitter*>()) halves->setSizes({Places, dialog.width() - Places});
}
} // namespace

bool CommonDialog::Action(int action)
{
    if (action != 1) throw RunTimeError{InvalidProcedureCall, u"Invalid procedure call"_s};
    return ShowOpen();
}

bool CommonDialog::ShowOpen()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QStringList filters = NameFilters(Filter);
    // The dialog is deleted with its owner, which a timer may close.
    const QPointer<QFileDialog> dialog = new OpenDialog(m_owner ? m_owner : OwnerOfDialog());
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode((Flags & FileMustExist) != 0 ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (!AcceptText.isEmpty()) dialog->setLabelText(QFileDialog::Accept, AcceptText);
    dialog->setWindowTitle(DialogTitle.isEmpty() ? u"Open"_s : DialogTitle);
    dialog->setNameFilters(filters);
    dialog->selectNameFilter(filters[qBound(1, FilterIndex, int(filters.size())) - 1]);
    dialog->setDirectory(FirstFolder({InitDir, m_lastFolder, documents}));
    if (QFileInfo(FileName).isFile()) dialog->selectFile(FileName);
    Enlarge(*dialog);
    const bool accepted = ExecModal(*dialog) == QDialog::Accepted && dialog;
    if (accepted) Take(*dialog, filters);
    delete dialog;
    RaiseIfCancelled(accepted);
    return accepted;
}

bool CommonDialog::ShowPrinter(SystemPrinter& printer)
{
    const bool accepted = printer.AskForSetup(m_owner);
    RaiseIfCancelled(accepted);
    return accepted;
}

void CommonDialog::RaiseIfCancelled(bool accepted) const
{
    if (!accepted && CancelError) throw RunTimeError{errors::DialogCancelled, u"Cancel was selected."_s};
}

void CommonDialog::Take(const QFileDialog& dialog, const QStringList& filters)
{
    const QFileInfo chosen(dialog.selectedFiles().value(0));
    FileName = chosen.absoluteFilePath();
    FileTitle = chosen.fileName();
    FilterIndex = int(filters.indexOf(dialog.selectedNameFilter())) + 1;
    m_lastFolder = chosen.absolutePath();
    filesystem::Remember(FileName);
}
