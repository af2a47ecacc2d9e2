// Runs a job of the system's printer, on paper or into a PDF file.
#pragma once

#include <QString>

#include <functional>
#include <optional>

class QPainter;
class QPrinter;
class SystemPrinter;

struct PrintTrouble
{
    QString text;
    QString advice;
};

struct PrintResult
{
    std::optional<PrintTrouble> trouble; // nothing is printed, and the file is as it was
    QString writtenFile;                 // empty after a job on paper or one that failed
};

// Paints with the painter on the whole paper, from its edge; QPrinter::newPage begins the next page. If paint raises,
// a file stays as it was.
PrintResult RunPrintJob(SystemPrinter& printer, const std::function<void(QPrinter& printer, QPainter& painter)>& paint);
