// The one printer of the program, for its setup and for every job: what the setup chooses holds until the program ends.
// Made when it is first asked for, since looking for printers on a network can take long.
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
    // After a job that failed: another printer with the same choices. The old one would fail for ever.
    void Renew();
    // The platform's print dialog, a PDF file among the printers; false if it was cancelled.
    virtual bool AskForJob(QWidget* owner);
    // The same one for the choice alone: it starts nothing and asks for no file.
    bool AskForSetup(QWidget* owner);

private:
    std::unique_ptr<QPrinter> m_printer;
};
