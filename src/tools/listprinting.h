// Prints the found days: a line each, with its date and the marked words.
#pragma once

#include <QString>

#include <vector>

class Foot;
class QWidget;
class SystemPrinter;
struct FoundLine;

class ListPrinting
{
public:
    ListPrinting(SystemPrinter& printer, Foot& foot) : m_printer(printer), m_foot(foot) {}

    // Asks for the printer. The heading is on every page, with the page's number.
    void Print(QWidget* owner, const QString& heading, const std::vector<FoundLine>& lines);

private:
    SystemPrinter& m_printer;
    Foot& m_foot;
};
