#include "platform/desktop/systemprinter.h"

#include "platform/desktop/mousepointer.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace {
// A calendar's seven columns want the longer side of the paper.
std::unique_ptr<QPrinter> MakePrinter()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setDocName(QStringLiteral("Orrelin"));
    printer->setCreator(QStringLiteral("Orrelin"));
    const bool isAmerican = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    // A printer knows its own paper; a file has none.
    if (printer->outputFormat() == QPrinter::PdfFormat)
        printer->setPageSize(QPageSize(isAmerican ? QPageSize::Letter : QPageSize::A4));
    return printer;
}

// The choice alone: the dialog would ask at once whether a file may be replaced whose name can be typed, so here none
// can be.
class SetupDialog : public QPrintDialog
{
public:
    SetupDialog(QPrinter* printer, QWidget* owner) : QPrintDialog(printer, owner)
    {
        setWindowTitle(QStringLiteral("Print Setup"));
        if (auto* const buttons = findChild<QDialogButtonBox*>()) {
            if (QPushButton* const ok = buttons->button(QDialogButtonBox::Ok)) ok->setText(QStringLiteral("&Ok"));
        }
        if (auto* const printers = findChild<QComboBox*>(QStringLiteral("printers")))
            connect(printers, &QComboBox::currentIndexChanged, this, &SetupDialog::CloseFileFields);
    }

    void setVisible(bool visible) override
    {
        QPrintDialog::setVisible(visible);
        CloseFileFields();
    }

private:
    void CloseFileFields()
    {
        for (const char* name : {"filename", "fileBrowser"}) {
            if (auto* const field = findChild<QWidget*>(QString::fromLatin1(name))) field->setEnabled(false);
        }
    }
};

bool Ask(QPrintDialog* made)
{
    // The dialog goes with its owner if the program ends behind it.
    const QPointer<QPrintDialog> dialog = made;
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    const int pointer = MousePointer();
    SetMousePointer(mousepointer::Default);
    const bool accepted = dialog->exec() == QDialog::Accepted && dialog;
    SetMousePointer(pointer);
    delete dialog;
    return accepted;
}
} // namespace

SystemPrinter::SystemPrinter() = default;
SystemPrinter::~SystemPrinter() = default;

QPrinter& SystemPrinter::Printer()
{
    if (!m_printer) m_printer = MakePrinter();
    return *m_printer;
}

bool SystemPrinter::AskForJob(QWidget* owner)
{
    auto* dialog = new QPrintDialog(&Printer(), owner);
    dialog->setWindowTitle(QStringLiteral("Print"));
    return Ask(dialog);
}

bool SystemPrinter::AskForSetup(QWidget* owner)
{
    return Ask(new SetupDialog(&Printer(), owner));
}
