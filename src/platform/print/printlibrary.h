// The operations that print a calendar on one page, in the order of a job. They know no planner: a cell is a view code
// (2: one row of 7, 3: five rows of 7) and a position from 1; the rest is texts and looks.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <cstdint>

class QWidget;
class RichTextBox;

// The look of a caption on the screen. paper and frame are those of its cell.
struct CaptionLook
{
    QFont font;
    QColor ink = Qt::black;
    Qt::Alignment alignment = Qt::AlignHCenter;
    QColor paper = Qt::white;
    QColor frame = {}; // none if invalid
};

class PrintLibrary
{
public:
    virtual ~PrintLibrary() = default;

    // Asks for the printer and begins a job; 0 if cancelled. tbPrint passes each note and must outlive the job. A job
    // without end is dropped, with nothing printed.
    virtual std::int16_t qmtInitPrint(QWidget* window, RichTextBox& tbPrint) = 0;
    virtual void qmtPrintHeader() = 0; // from section PAGESETUP
    virtual void qmtPrintDOW(const QString& caption,
                             const CaptionLook& look) = 0; // call it for each of the seven headings
    virtual void qmtPrintBoxes(int view, int position) = 0;
    // Prints tbPrint's note; path is the file it came from.
    virtual void qmtPrintBody(const QString& path, int view, int position) = 0;
    virtual void qmtPrintDate(const QString& caption, const CaptionLook& look, int view, int position) = 0;
    virtual void qmtPrintMonth(const QString& caption, const CaptionLook& look) = 0;
    virtual void qmtEndPrint() = 0; // prints the page
    // Tells the user if printing failed. Call it when no notice is in front of the windows.
    virtual void TellTrouble() = 0;
    // The file that the last job has written; empty after a job on paper or one that failed.
    virtual QString WrittenFile() const = 0;
};
