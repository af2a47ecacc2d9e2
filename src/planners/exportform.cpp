#include "planners/exportform.h"

#include "platform/controls/datebutton.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/dateorder.h"

#include <QButtonGroup>
#include <QRadioButton>

ExportForm::ExportForm(QWidget* owner, const DaySpan& shown, const QString& nameOfShown)
    : QDialog(owner), m_dateOrder(LocalDateOrder()), m_shown(shown)
{
    auto* column = DialogColumn(*this);
    AddDays(AddPart(*column, u"Days"_s), nameOfShown);
    AddFormats(*column, u"As"_s);
}

ExportForm::ExportForm(QWidget* owner, const QString& nameOfDays) : QDialog(owner), m_dateOrder(LocalDateOrder())
{
    constexpr qsizetype Longest = 60; // the name has what a person has typed
    const QString shown = nameOfDays.size() <= Longest ? nameOfDays : nameOfDays.first(Longest) + u"..."_s;
    AddFormats(*DialogColumn(*this), QString(shown).replace(u'&', u"&&"_s) + " as"_L1);
}

void ExportForm::AddDays(QBoxLayout& options, const QString& nameOfShown)
{
    m_opShown = AddTo<QRadioButton>(options, "opShown", nameOfShown);
    QHBoxLayout* row = DialogRow(Rhythm, {});
    options.addLayout(row);
    m_opSpan = AddTo<QRadioButton>(*row, "opSpan", u"&From"_s);
    m_maskFrom = AddDate(*row, "maskFrom", {}, u"Pick the first day"_s, m_shown.from);
    m_maskTo = AddDate(*row, "maskTo", u"&to"_s, u"Pick the last day"_s, m_shown.to);
    row->addStretch(1);
    m_opAll = AddTo<QRadioButton>(options, "opAll", u"The &whole planner, with its recurring events"_s);
    auto* days = new QButtonGroup(this); // the row is a layout of its own, not a part
    for (QRadioButton* option : {m_opShown, m_opSpan, m_opAll})
        days->addButton(option);
    m_opShown->setChecked(true);
    m_opSpan->setFocusProxy(m_maskFrom);
}

MaskEdBox* ExportForm::AddDate(QBoxLayout& row, const char* name, const QString& caption, const QString& tip,
                               const GridDay& day)
{
    MaskEdBox* box = MakeDateBox(name, m_dateOrder.mask);
    if (day.year <= LastYearOfBox) box->SetText(m_dateOrder.BoxText(KeyOf(day)));
    box->setAccessibleName(tip.section(u' ', 1));
    if (!caption.isEmpty()) row.addWidget(LabelOf(caption, box));
    row.addWidget(box);
    row.addWidget(Named(new DateButton(box, m_dateOrder.label, tip), "btnPickDate"));
    connect(box, &QLineEdit::textEdited, m_opSpan, [this] { m_opSpan->setChecked(true); });
    return box;
}

// The last part of the window.
void ExportForm::AddFormats(QBoxLayout& column, const QString& heading)
{
    QBoxLayout& options = AddPart(column, heading);
    for (const ExportFormat& format : ExportFormats()) {
        m_opFormat.push_back(AddTo<QRadioButton>(
            options, format.name, u"%1 (.%2)"_s.arg(QLatin1StringView(format.kind), QLatin1StringView(format.name))));
        m_opFormat.back()->setChecked(&format == FormatNamed(Read(settings::LastExport)));
    }
    column.addWidget(MakeOkCancel(*this));
    setObjectName(u"ExportForm"_s);
    setWindowTitle(u"Export"_s);
    CenterOnScreen(*this);
}

const ExportFormat& ExportForm::Format() const
{
    for (std::size_t i = 0; i < m_opFormat.size(); ++i)
        if (m_opFormat[i]->isChecked()) return ExportFormats()[i];
    return ExportFormats().front();
}

GridDay ExportForm::DayIn(const MaskEdBox& box) const
{
    return DayOfKey(fnFnGetQMTDate(m_dateOrder.EntryDate(box.Text()))).value_or(GridDay());
}

std::optional<DaySpan> ExportForm::Span() const
{
    if (m_opAll->isChecked()) return {};
    return m_opShown->isChecked() ? m_shown : DaySpan{DayIn(*m_maskFrom), DayIn(*m_maskTo)};
}

// The box to correct, with the reason, or null.
MaskEdBox* ExportForm::RefusedBox(QString& reason) const
{
    if (!m_opSpan || !m_opSpan->isChecked()) return nullptr;
    reason = u"The first day is not a valid date"_s;
    if (!m_maskFrom->IsComplete() || DayIn(*m_maskFrom).year == 0) return m_maskFrom;
    reason = u"The last day is not a valid date"_s;
    if (!m_maskTo->IsComplete() || DayIn(*m_maskTo).year == 0) return m_maskTo;
    reason = u"The last day is before the first"_s;
    return DayIn(*m_maskTo) < DayIn(*m_maskFrom) ? m_maskTo : nullptr;
}

void ExportForm::accept()
{
    QString reason;
    if (MaskEdBox* box = RefusedBox(reason)) {
        messages::Tell(reason);
        box->setFocus();
        return box->selectAll();
    }
    Write(settings::LastExport, QString::fromLatin1(Format().name));
    QDialog::accept();
}
