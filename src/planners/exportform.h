// Asks which days to export, and as what.
#pragma once

#include "exchange/exportformats.h"
#include "exchange/extraction.h"

#include <QDialog>

struct DateOrder;
class MaskEdBox;
class QBoxLayout;
class QRadioButton;

class ExportForm : public QDialog
{
public:
    // The shown days, with their name: "The shown month, July 1999".
    ExportForm(QWidget* owner, const DaySpan& shown, const QString& nameOfShown);

    // Asks only for the format of these days: "The 12 days".
    ExportForm(QWidget* owner, const QString& nameOfDays);

    std::optional<DaySpan> Span() const; // empty: the whole planner
    const ExportFormat& Format() const;

    void accept() override; // after a check of the dates

private:
    void AddDays(QBoxLayout& options, const QString& nameOfShown);
    MaskEdBox* AddDate(QBoxLayout& row, const char* name, const QString& caption, const QString& tip,
                       const GridDay& day);
    void AddFormats(QBoxLayout& column, const QString& heading);
    GridDay DayIn(const MaskEdBox& box) const;
    MaskEdBox* RefusedBox(QString& reason) const;

    const DateOrder& m_dateOrder;
    DaySpan m_shown;
    QRadioButton* m_opShown = nullptr;
    QRadioButton* m_opSpan = nullptr;
    QRadioButton* m_opAll = nullptr;
    MaskEdBox* m_maskFrom = nullptr;
    MaskEdBox* m_maskTo = nullptr;
    std::vector<QRadioButton*> m_opFormat; // in the order of ExportFormats
};
