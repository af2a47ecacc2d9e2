#include "tools/datedifference.h"

#include "hall/cells.h"
#include "hall/menus.h"
#include "platform/controls/datebutton.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/controls/toolbar.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/look/colorvalue.h"
#include "platform/look/paper.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/dateorder.h"
#include "state/modshow.h"
#include "state/refusals.h"
#include "tools/datecount.h"

#include <QApplication>
#include <QButtonGroup>
#include <QColorDialog>
#include <QLabel>
#include <QRadioButton>

namespace {
const QString ButtonKey = u"datediff"_s;

// Not validated. By default the first day of the shown year.
QString StoredStartDate()
{
    return Read(settings::DateDiff, u"01/01/"_s + TrimmedStr(g_iYear).rightJustified(4, u'0'));
}

// An unknown unit counts as days.
DateUnit StoredDateUnit()
{
    const int method = Read(settings::DateDiffMethod);
    return method == 1 || method == 2 ? static_cast<DateUnit>(method) : DateUnit::Day;
}

// Paints the label's ground and chooses a readable text colour.
void PaintDateDiffLabel(QLabel& label, std::uint32_t color)
{
    constexpr int Middle = 128;
    const QColor ground = ColorOfValue(color);
    QPalette palette = label.palette();
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, qGray(ground.rgb()) < Middle ? paper::Paper : paper::Ink);
    label.setPalette(palette);
}

QString CaptionOf(DateUnit unit, int difference)
{
    static constexpr const char* words[] = {"Day ", "Week ", "Month "};
    return QLatin1StringView(words[static_cast<int>(unit)]) + TrimmedStr(difference);
}
} // namespace

bool DateDifference::IsOn() const
{
    return m_toolbar.Buttons(ButtonKey).Value() == 1;
}

void DateDifference::mnuDateDiffShow_Click()
{
    m_toolbar.Buttons(ButtonKey).SetValue(IsOn() ? 0 : 1);
    subApplyDateDiff();
}

void DateDifference::mnuDateDiffCustomize_Click()
{
    if (RefusesWithoutPlanner()) return;
    DateDiffForm(m_cells.Client()->window()).exec();
}

void DateDifference::subApplyDateDiff()
{
    m_menus("mnuDateDiffShow"_L1).SetChecked(IsOn());
    if (IsOn())
        PaintDateDiffLabel(m_lblDateDiff, ColorOf(Read(settings::DateDiffColor)));
    else
        m_lblDateDiff.hide();
}

void DateDifference::tbDay_MouseMove(int Index)
{
    if (!IsOn()) return;
    const QString caption = m_cells.panelDay(Index).Caption();
    if (IsMemoCaption(caption)) return;
    const auto start = DayOfText(StoredStartDate());
    if (!start) return m_lblDateDiff.hide();
    const DateUnit unit = StoredDateUnit();
    const GridDay day = {g_iYear, g_iMonth, IntegerOf(caption)};
    Show(Index, CaptionOf(unit, DateDifferenceOf(unit, *start, day)));
}

// Shows the label for a person who uses the keyboard. A hit of the word search does not count: its window is active.
void DateDifference::tbDay_GotFocus(int Index)
{
    const bool isWalk = QApplication::activeWindow() == m_cells.Client()->window();
    if (isWalk && !MouseRestsOnCell()) tbDay_MouseMove(Index);
}

bool DateDifference::MouseRestsOnCell() const
{
    for (int cell = 1; cell <= CellCount; ++cell)
        if (m_cells.Shows(cell) && (m_cells.panelDay(cell).underMouse() || m_cells.tbDay(cell).underMouse()))
            return true;
    return false;
}

void DateDifference::FollowCell()
{
    if (m_lblDateDiff.isHidden()) return;
    if (m_cells.Shows(m_cell) && !IsMemoCaption(m_cells.panelDay(m_cell).Caption())) return tbDay_MouseMove(m_cell);
    m_lblDateDiff.hide();
}

void DateDifference::Show(int cell, const QString& caption)
{
    m_cell = cell;
    m_lblDateDiff.raise(); // newly placed cells come to the front
    m_lblDateDiff.setText(caption);
    m_lblDateDiff.adjustSize();
    QRect place = m_lblDateDiff.geometry();
    place.moveBottomRight(m_cells.tbDay(cell).geometry().bottomRight());
    m_lblDateDiff.setGeometry(place);
    m_lblDateDiff.show();
}

DateDiffForm::DateDiffForm(QWidget* owner) : QDialog(owner), m_opDateDiff(new QButtonGroup(this))
{
    setObjectName(u"DateDiffForm"_s);
    setWindowTitle(u"Customize Date Difference"_s);
    auto* column = DialogColumn(*this);
    auto* frame = new DialogPart(u"Date Difference Options"_s, DialogPart::Kind::Whole);
    auto* rows = new QVBoxLayout(frame);
    rows->addLayout(MakeStartDate());
    rows->addWidget(MakeMethods());
    rows->addLayout(MakeColor());
    column->addWidget(frame);
    column->addWidget(MakeOkCancel(*this));
    ErrorTail{" in DateDiffForm, Form Load"_L1}([this] { ShowSettings(); });
    CenterOnScreen(*this);
    m_maskStartDate->setFocus();
}

QLayout* DateDiffForm::MakeStartDate()
{
    m_maskStartDate = Named(new MaskEdBox, "maskStartDate");
    m_lblDateFormat = Named(new QLabel, "lblDateFormat");
    auto* pick =
        Named(new DateButton(m_maskStartDate, LocalDateOrder().label, u"Pick the start date"_s), "btnPickDate");
    auto* row =
        DialogRow(Rhythm, {LabelOf(u"&Start Date:"_s, m_maskStartDate), m_maskStartDate, pick, m_lblDateFormat});
    row->setStretchFactor(m_maskStartDate, 1);
    return row;
}

QWidget* DateDiffForm::MakeMethods()
{
    auto* frame = new DialogPart(u"Calculation Method"_s);
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(2 * Rhythm);
    int unit = 0;
    for (const QString& caption : {u"Day"_s, u"Week"_s, u"Month"_s}) {
        auto* option = Named(new QRadioButton(caption), "opDateDiff", unit);
        m_opDateDiff->addButton(option, unit++);
        row->addWidget(option);
    }
    row->addStretch(1);
    return frame;
}

QLayout* DateDiffForm::MakeColor()
{
    constexpr int CaptionPadding = 8; // in addition to the style's own padding
    auto* button = Named(new QPushButton(u"Background Color"_s), "btnBGColor");
    button->setMinimumWidth(button->sizeHint().width() + 2 * CaptionPadding);
    connect(button, &QPushButton::clicked, this,
            Guarded(" in DateDiffForm, btnBGColor_Click"_L1, [this] { btnBGColor_Click(); }));
    m_lblDateDiff = Named(new QLabel(u"Day 365"_s), "lblDateDiff");
    m_lblDateDiff->setAccessibleName(u"Sample"_s);
    m_lblDateDiff->setAutoFillBackground(true);
    m_lblDateDiff->setMargin(3);
    return DialogRow(2 * Rhythm, {button, m_lblDateDiff, nullptr});
}

void DateDiffForm::ShowSettings()
{
    const DateOrder& order = LocalDateOrder();
    m_lblDateFormat->setText(order.label);
    m_maskStartDate->SetMask(order.mask);
    if (const auto start = DayOfText(StoredStartDate())) m_maskStartDate->SetText(order.BoxText(KeyOf(*start)));
    m_opDateDiff->button(static_cast<int>(StoredDateUnit()))->setChecked(true);
    m_color = ColorOf(Read(settings::DateDiffColor));
    PaintDateDiffLabel(*m_lblDateDiff, m_color);
}

void DateDiffForm::btnBGColor_Click()
{
    const QColor chosen = QColorDialog::getColor(ColorOfValue(m_color), this, u"Color"_s);
    if (!chosen.isValid()) return;
    m_color = ValueOfColor(chosen);
    PaintDateDiffLabel(*m_lblDateDiff, m_color);
}

void DateDiffForm::accept()
{
    const QString start = LocalDateOrder().EntryDate(m_maskStartDate->Text());
    if (!fnValidateDate(start) || !DayOfText(start)) { // the second test finds missing digits
        messages::Tell(u"Start Date is not a valid date"_s);
        m_maskStartDate->setFocus();
        return;
    }
    ErrorTail{" in DateDiffForm, btnOk_Click"_L1}([&] {
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        Write(settings::DateDiff, start);
        Write(settings::DateDiffMethod, m_opDateDiff->checkedId());
        Write(settings::DateDiffColor, ColorText(m_color));
    });
    QDialog::accept();
}
