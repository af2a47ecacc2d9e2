// The operations by which a calendar is put on one page, in the order in which a job calls them. Knows no
// planner: a cell is a view code (2 a row of 7, 3 five rows of 7) and a position from 1, and all else is texts with
// their looks.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <cstdint>

class QWidget;
class RichTextBox;

// How a caption looks on the screen. Colours of paper and frame belong to the cell around it.
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

    // Asks for the printer and begins a job; 0 if there is to be none. tbPrint carries each note and must outlive the
    // job. A job that was left without its end is dropped, with nothing printed.
    virtual std::int16_t qmtInitPrint(QWidget* window, RichTextBox& tbPrint) = 0;
    virtual void qmtPrintHeader() = 0;                                             // as set up in PAGESETUP
    virtual void qmtPrintDOW(const QString& caption, const CaptionLook& look) = 0; // the next heading, seven in all
    virtual void qmtPrintBoxes(int view, int position) = 0;
    // The note that tbPrint holds. path is the file it was loaded from.
    virtual void qmtPrintBody(const QString& path, int view, int position) = 0;
    virtual void qmtPrintDate(const QString& caption, const CaptionLook& look, int view, int position) = 0;
    virtual void qmtPrintMonth(const QString& caption, const CaptionLook& look) = 0;
    virtual void qmtEndPrint() = 0; // prints the page
    // Says so if that failed; for the caller whose notice, in front of every window, has gone.
    virtual void TellTrouble() = 0;
};
