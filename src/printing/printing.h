// Printing: page setup, printer setup, and the shown calendar on one page.
#pragma once

#include <QString>

#include <memory>

struct BottomPanel;
class Cells;
class CommonDialog;
class Foot;
class LockedDay;
class PrintLibrary;
class RichTextBox;
class SpoolForm;
class SystemPrinter;
class ViewMode;

// The printed parts of the main window.
struct Printed
{
    Cells& cells;
    const BottomPanel& bottom;
    Foot& foot;
    const ViewMode& viewMode;
};

class Printing
{
public:
    Printing(const Printed& printed, LockedDay& lockedDay, CommonDialog& FontDialog, SystemPrinter& printer,
             PrintLibrary& library);
    ~Printing();

    void mnuPageSetup_Click();
    void mnuPrintSetup_Click();
    void mnuPrint_Click();
    void subUseDLLPrintEngine();

private:
    void PrintPage();
    void ShowSpoolForm();
    void PrintCell(int view, int position, int cell);
    void LoadCarrier(RichTextBox& note, const QString& path);

    Printed m_printed;
    LockedDay& m_lockedDay;
    CommonDialog& m_FontDialog;
    SystemPrinter& m_printer;
    PrintLibrary& m_library;
    RichTextBox* m_tbPrint = nullptr; // hidden; carries each note to the printer. Made by the first job
    std::unique_ptr<SpoolForm> m_spoolForm;
};
