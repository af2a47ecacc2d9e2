#include "notes/recoveryform.h"

#include "notes/rescuefiles.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/notesheets.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QPushButton>

namespace {
constexpr QSize OpeningSize(800, 440);
constexpr int Gap = 12;
} // namespace

RecoveryForm::RecoveryForm(std::vector<FoundNote> notes, QWidget* owner) : QDialog(owner), m_notes(std::move(notes))
{
    setObjectName(u"RecoveryForm"_s);
    setWindowTitle(u"Unsaved Notes Found"_s);
    MakeList();
    QSplitter* sheets = MakeSheets(
        *m_lstDays, u"Days:"_s, OpeningSize.width(),
        {MakeSheet(u"In the planner:"_s, "tbStored", m_tbStored), MakeSheet(u"Found:"_s, "tbFound", m_tbFound)});
    auto* column = DialogColumn(*this, QLayout::SetDefaultConstraint);
    column->setSpacing(Gap);
    column->addWidget(MakeWrappedText(u"What was typed on these days has not been saved. Tick the days whose "
                                      "text is to go into the planner."_s));
    column->addWidget(sheets, 1);
    column->addWidget(MakeWrappedText(u"What is not ticked is kept as files in %1"_s.arg(RescueFolder())));
    column->addWidget(MakeFoot());
    connect(m_lstDays, &QListWidget::currentRowChanged, this,
            Guarded(" in RecoveryForm, lstDays_Click"_L1, [this](int row) { ShowNote(row); }));
    m_lstDays->setCurrentRow(0);
    m_lstDays->setFocus();
    resize(OpeningSize);
    CenterOnScreen(*this);
}

void RecoveryForm::MakeList()
{
    m_lstDays = Named(new QListWidget, "lstDays");
    m_lstDays->setAccessibleName(u"Days"_s);
    for (const FoundNote& note : m_notes) {
        auto* day = new QListWidgetItem(fnFormatDateKey(note.key), m_lstDays);
        day->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        day->setCheckState(Qt::Checked);
    }
    connect(m_lstDays, &QListWidget::itemChanged, this, &RecoveryForm::TellTick);
}

// The list widget does not announce its ticks.
void RecoveryForm::TellTick(const QListWidgetItem* item)
{
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent tick(m_lstDays, changed);
    tick.setChild(m_lstDays->row(item));
    QAccessible::updateAccessibility(&tick);
}

QWidget* RecoveryForm::MakeFoot()
{
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* take = buttons->addButton(u"&Put into Planner"_s, QDialogButtonBox::AcceptRole);
    take->setObjectName(u"btnOk"_s);
    take->setDefault(true);
    buttons->addButton(u"Ask &Later"_s, QDialogButtonBox::RejectRole)->setObjectName(u"btnCancel"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void RecoveryForm::ShowNote(int row)
{
    const FoundNote& note = m_notes.at(std::size_t(qMax(0, row)));
    m_tbStored->SetTextRTF(note.stored);
    m_tbFound->SetTextRTF(note.note.Over(note.stored));
}

bool RecoveryForm::Takes(std::size_t number) const
{
    return m_lstDays->item(int(number))->checkState() == Qt::Checked;
}
