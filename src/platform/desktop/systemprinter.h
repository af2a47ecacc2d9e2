// The program's printer, for setup and jobs; the choices last until the program ends. Created on first use, since
// finding network printers may take long.
#pragma once

#include <memory>

class QPrinter;
class QWidget;

class SystemPrinter
{
public:
    SystemPrinter();
    virtual ~SystemPrinter();

    QPrinter& Printer();
    // After a failed job: a new printer with the same choices, since the old one keeps failing.
    void Renew();
    // The print dialog, which also offers a PDF file; false if cancelled.
    virtual bool AskForJob(QWidget* owner);
    // The same dialog for choosing only: prints nothing and asks for no file.
    bool AskForSetup(QWidget* owner);

private:
    std::unique_ptr<QPrinter> m_printer;
};
