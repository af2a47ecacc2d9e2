#include "recurrence/recurform.h"

#include "editing/notemenu.h"
#include "platform/controls/datebutton.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/named.h"
#include "platform/controls/notepanel.h"
#include "platform/controls/optionbutton.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/softtext.h"
#include "platform/runtime/errortail.h"
#include "state/dateorder.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
QComboBox* MakeList(const char* name, const char* tip, QLayout& row)
{
    auto* list = Named(new QComboBox, name);
    list->setAccessibleName(QString::fromLatin1(tip));
    row.addWidget(list);
    return list;
}
} // namespace

RecurForm::RecurForm(QWidget* owner, Cells& cells, QMTDB& notes, const ViewMode& viewMode, FontCommand& fontCommand)
    : QDialog(owner), m_cells(cells), m_notes(notes), m_viewMode(viewMode), m_fontCommand(fontCommand),
      m_iDateFormat(LocalDateOrder()), m_opMethod(new QButtonGroup(this))
{
    setObjectName(u"RecurForm"_s);
    setWindowTitle(u"Recurring Events"_s);
    auto* column = DialogColumn(*this);
    column->addWidget(MakeOptions(), 1);
    column->addWidget(MakeDays());
    column->addLayout(MakeFoot());
    m_btnOk->setDefault(true); // only now: the window ignores a button it does not contain yet
    Form_Load();
    FollowChanges();
    CenterAroundNote(*this, *m_tbRecurse);
    m_maskStartDate->setFocus();
}

QWidget* RecurForm::MakeOptions()
{
    auto* frame = Named(new DialogPart(u"Recurring Event Options"_s, DialogPart::Kind::Whole), "frOptions");
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(2, 1);
    // In tab order: the browser comes last, since it is not needed to enter an event.
    grid->addLayout(MakeDates(), 0, 0);
    grid->addLayout(MakeMethods(), 1, 0);
    grid->addWidget(MakeInterval(), 1, 1);
    grid->addWidget(MakeText(), 2, 0, 1, 2);
    grid->addWidget(MakeBrowser(), 0, 1);
    return frame;
}

QLayout* RecurForm::MakeDates()
{
    auto* grid = new QGridLayout;
    grid->setSpacing(Rhythm);
    grid->setColumnStretch(3, 1);
    m_maskStartDate = MakeDateBox(*grid, 0, "maskStartDate", "&Start Date:", "Pick the start date");
    m_maskUntil = MakeDateBox(*grid, 1, "maskUntil", "&Until:", "Pick the last date");
    return grid;
}

MaskEdBox* RecurForm::MakeDateBox(QGridLayout& grid, int row, const char* name, const char* caption,
                                  const char* pickTip)
{
    MaskEdBox* box = ::MakeDateBox(name, m_iDateFormat.mask);
    auto* lblDateFormat = Named(new QLabel(m_iDateFormat.label), "lblDateFormat", row);
    SoftenText(*lblDateFormat);
    grid.addWidget(LabelOf(QString::fromLatin1(caption), box), row, 0);
    grid.addWidget(box, row, 1);
    grid.addWidget(Named(new DateButton(box, m_iDateFormat.label, QString::fromLatin1(pickTip)), "btnPickDate", row),
                   row, 2);
    grid.addWidget(lblDateFormat, row, 3);
    return box;
}

QWidget* RecurForm::MakeBrowser()
{
    const QString right = u":/icons/right.svg"_s;
    auto* frame = Named(new DialogPart(u"&Browse..."_s), "Frame3D3");
    auto* row = new QHBoxLayout(frame);
    m_picRightSpin = Named(new PictureButton({right, u":/icons/right-pressed.svg"_s, right}), "picRightSpin");
    m_lblNextRecord = Named(new QLabel(u"Next Recurring Event"_s), "lblNextRecord");
    // Wide enough for the text at the end of the list.
    m_lblNextRecord->setMinimumWidth(m_lblNextRecord->fontMetrics().horizontalAdvance(u"End of Recurring Event "_s));
    for (int element = 0; element < 3; ++element)
        m_picRightSpin->SetToolTip(element, m_lblNextRecord->text());
    m_picRightSpin->SetFramed(true);
    row->addWidget(m_picRightSpin);
    row->addWidget(m_lblNextRecord);
    row->addStretch(1);
    connect(m_picRightSpin, &PictureButton::MouseDown, this,
            Guarded(" in RecurForm, picRightSpin()_MouseDown"_L1, [this] { picRightSpin_MouseDown(); }));
    connect(m_picRightSpin, &PictureButton::MouseUp, this,
            Guarded(" in RecurForm, picRightSpin_MouseUp"_L1, [this] { picRightSpin_MouseUp(); }));
    return frame;
}

QLayout* RecurForm::MakeMethods()
{
    auto* row = DialogRow(2 * Rhythm, {});
    int index = 0;
    for (const QString& caption : {u"D&ay"_s, u"&Week"_s, u"&Month"_s, u"&Year"_s, u"S&pecial"_s}) {
        auto* option = Named(new OptionButton(caption), "opMethod", index);
        m_opMethod->addButton(option, index++);
        row->addWidget(option);
    }
    row->addStretch(1);
    return row;
}

QWidget* RecurForm::MakeInterval()
{
    auto* frame = Named(new DialogPart(u"&Every ..."_s, DialogPart::Kind::Line), "Frame3D1");
    auto* lists = new QHBoxLayout(frame);
    m_cmbRecurDays = MakeList("cmbRecurDays", "Number", *lists);
    m_cmbRecurDays->setEditable(true);
    m_cmbRecurDays->lineEdit()->setAccessibleName(m_cmbRecurDays->accessibleName());
    m_cmbRecurDays->setInsertPolicy(QComboBox::NoInsert);
    m_cmbRecurSpecial = MakeList("cmbRecurSpecial", "Unit", *lists);
    lists->addStretch(1);
    return frame;
}

QWidget* RecurForm::MakeText()
{
    m_tbRecurse = Named(new RichTextBox, "tbRecurse");
    m_tbRecurse->setAccessibleName(u"Text of the event"_s);
    m_tbRecurse->setPlaceholderText(u"Write the event here"_s);
    AddNoteMenu(*m_tbRecurse, "RecurForm");
    return MakeNotePanel(m_tbRecurse, {480, 64});
}

QLabel* RecurForm::MakeDays()
{
    m_lblDays = Named(new QLabel, "lblDays");
    m_lblDays->setTextFormat(Qt::PlainText);
    m_lblDays->setWordWrap(true);
    m_lblDays->setMinimumHeight(2 * m_lblDays->fontMetrics().lineSpacing());
    SoftenText(*m_lblDays);
    return m_lblDays;
}

QLayout* RecurForm::MakeFoot()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(Rhythm);
    const auto add = [&](const char* name, const char* caption, const char* literal, void (RecurForm::*click)()) {
        auto* button = Named(new QPushButton(QString::fromLatin1(caption)), name);
        connect(button, &QPushButton::clicked, this,
                Guarded(QLatin1StringView(literal), [this, click] { (this->*click)(); }));
        row->addWidget(button);
        return button;
    };
    m_btnFonts = add("btnFonts", "&Fonts", " in RecurForm, btnFonts_Click", &RecurForm::btnFonts_Click);
    row->addStretch();
    m_btnDelete = add("btnDelete", "&Delete", " in RecurForm, btnDelete_Click", &RecurForm::btnDelete_Click);
    m_btnOk = add("btnOk", "&Ok", " in RecurForm, btnOk_Click", &RecurForm::btnOk_Click);
    m_btnCancel = add("btnCancel", "&Cancel", " in RecurForm, btnCancel_Click", &RecurForm::reject);
    m_btnDelete->setEnabled(false);
    return row;
}
