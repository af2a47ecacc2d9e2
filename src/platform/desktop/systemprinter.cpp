#include "platform/desktop/systemprinter.h"

#include "platform/desktop/mousepointer.h"

#include <QChildEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

#include <utility>

namespace {
// The calendar's seven columns need the longer side.
std::unique_ptr<QPrinter> MakePrinter()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setDocName(u"Orrelin"_s);
    printer->setCreator(u"Orrelin"_s);
    const bool isAmerican = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    // Printers know their paper; PDF files have none.
    if (printer->outputFormat() == QPrinter::PdfFormat)
        printer->setPageSize(QPageSize(isAmerican ? QPageSize::Letter : QPageSize::A4));
    return printer;
}

// Hides the margins behind "Properties": only those of Page Setup count.
class PrinterDialog : public QPrintDialog
{
public:
    using QPrintDialog::QPrintDialog;

protected:
    void childEvent(QChildEvent* event) override
    {
        QPrintDialog::childEvent(event);
        if (!event->polished()) return;
        const auto* const margin = event->child()->findChild<QWidget*>(u"leftMargin"_s);
        if (margin) margin->parentWidget()->hide();
    }
};

// For choosing a printer only. The file name is disabled, since the dialog would ask at once whether to replace the
// file.
class SetupDialog : public PrinterDialog
{
public:
    SetupDialog(QPrinter* printer, QWidget* owner) : PrinterDialog(printer, owner)
    {
        setWindowTitle(u"Print Setup"_s);
        if (const auto* const buttons = findChild<QDialogButtonBox*>()) NameButtons(*buttons);
        if (auto* const printers = findChild<QComboBox*>(u"printers"_s))
            connect(printers, &QComboBox::currentIndexChanged, this, &SetupDialog::CloseFileFields);
    }

    void setVisible(bool visible) override
    {
        PrinterDialog::setVisible(visible);
        CloseFileFields();
    }

private:
    void NameButtons(const QDialogButtonBox& buttons)
    {
        if (QPushButton* const ok = buttons.button(QDialogButtonBox::Ok)) ok->setText(u"&Ok"_s);
        for (QAbstractButton* const button : buttons.buttons()) {
            if (buttons.buttonRole(button) != QDialogButtonBox::ResetRole) continue;
            LeaveLetterToOk(*button);
            // A click changes its text.
            connect(button, &QAbstractButton::clicked, this, [button] { LeaveLetterToOk(*button); });
        }
    }

    static void LeaveLetterToOk(QAbstractButton& options)
    {
        options.setText(options.text().replace(u"&Op"_s, u"O&p"_s));
    }

    void CloseFileFields()
    {
        for (const char* name : {"filename", "fileBrowser"}) {
            if (auto* const field = findChild<QWidget*>(QString::fromLatin1(name))) field->setEnabled(false);
        }
    }
};

bool Ask(QPrintDialog* made)
{
    // The dialog is deleted with its owner.
    const QPointer<QPrintDialog> dialog = made;
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    const bool accepted = ExecModal(*dialog) == QDialog::Accepted && dialog;
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

void SystemPrinter::Renew()
{
    const std::unique_ptr<QPrinter> failed = std::exchange(m_printer, MakePrinter());
    m_printer->setPrinterName(failed->printerName());
    m_printer->setOutputFileName(failed->outputFileName());
    m_printer->setOutputFormat(failed->outputFormat());
    m_printer->setPageLayout(failed->pageLayout());
    m_printer->setCopyCount(failed->copyCount());
    m_printer->setCollateCopies(failed->collateCopies());
    m_printer->setColorMode(failed->colorMode());
    m_printer->setDuplex(failed->duplex());
}

bool SystemPrinter::AskForJob(QWidget* owner)
{
    auto* dialog = new PrinterDialog(&Printer(), owner);
    dialog->setWindowTitle(u"Print"_s);
    return Ask(dialog);
}

bool SystemPrinter::AskForSetup(QWidget* owner)
{
    return Ask(new SetupDialog(&Printer(), owner));
}
