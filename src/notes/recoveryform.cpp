#include "notes/recoveryform.h"

#include "notes/rescuefiles.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/notepanel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>

namespace {
constexpr QSize OpeningSize(800, 440);
constexpr int Gap = 12;

QLabel* MakeText(const QString& text)
{
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

QWidget* MakeColumn(const QString& caption, QWidget* content)
{
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(caption));
    layout->addWidget(content, 1);
    return column;
}
} // namespace

RecoveryForm::RecoveryForm(std::vector<FoundNote> notes, QWidget* owner) : QDialog(owner), m_notes(std::move(notes))
{
    setObjectName(u"RecoveryForm"_s);
    setWindowTitle(u"Unsaved Notes Found"_s);
    auto* sheets = new QSplitter;
    sheets->addWidget(MakeList());
    sheets->addWidget(MakeSheet(u"In the planner:"_s, "tbStored", m_tbStored));
    sheets->addWidget(MakeSheet(u"Found:"_s, "tbFound", m_tbFound));
    const int share = (OpeningSize.width() - m_lstDays->minimumWidth()) / 2;
    sheets->setSizes({m_lstDays->minimumWidth(), share, share});
    for (int sheet = 1; sheet <= 2; ++sheet)
        sheets->setStretchFactor(sheet, 1);
    sheets->setHandleWidth(Gap);
    sheets->setChildrenCollapsible(false);
    auto* column = DialogColumn(*this, QLayout::SetDefaultConstraint);
    column->setSpacing(Gap);
    column->addWidget(MakeText(u"What was typed on these days has not been saved. Tick the days whose "
                               "text is to go into the planner."_s));
    column->addWidget(sheets, 1);
    column->addWidget(MakeText(u"What is not ticked is kept as files in %1"_s.arg(RescueFolder())));
    column->addWidget(MakeFoot());
    connect(m_lstDays, &QListWidget::currentRowChanged, this,
            Guarded(" in RecoveryForm, lstDays_Click"_L1, [this](int row) { ShowNote(row); }));
    m_lstDays->setCurrentRow(0);
    m_lstDays->setFocus();
    resize(OpeningSize);
    CenterOnScreen(*this);
}

QWidget* RecoveryForm::MakeList()
{
    m_lstDays = Named(new QListWidget, "lstDays");
    m_lstDays->setAccessibleName(u"Days"_s);
    for (const FoundNote& note : m_notes) {
        auto* day = new QListWidgetItem(fnFormatDateKey(note.key), m_lstDays);
        day->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        day->setCheckState(Qt::Checked);
    }
    constexpr int ScrollBarAndGap = 28;
    m_lstDays->setMinimumWidth(m_lstDays->sizeHintForColumn(0) + ScrollBarAndGap);
    connect(m_lstDays, &QListWidget::itemChanged, this, &RecoveryForm::TellTick);
    return MakeColumn(u"Days:"_s, m_lstDays);
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

QWidget* RecoveryForm::MakeSheet(const QString& caption, const char* name, RichTextBox*& box)
{
    box = Named(new RichTextBox, name);
    box->setAccessibleName(caption);
    box->SetLocked(true);
    return MakeColumn(caption, MakeNotePanel(box));
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
