#include "planners/importform.h"

#include "platform/controls/datebutton.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "settings/messages.h"
#include "state/dateorder.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QSet>
#include <QTreeWidget>

#include <algorithm>
#include <set>

namespace {
enum Column
{
    Days,
    What,
    Remark
};

QString InWords(const GridDay& day)
{
    if (day.day == 0) return fnFormatDateKey(u"%1/%2/1"_s.arg(day.year).arg(day.month)).remove(u" 1,"_s);
    return fnFormatDateKey(KeyOf(day));
}

std::set<GridDay> DaysOf(const ImportedEntry& entry)
{
    std::set<GridDay> days;
    for (const ExtractedNote& note : entry.notes)
        days.insert(note.day);
    for (const ExtractedAlarm& alarm : entry.alarms)
        days.insert(alarm.day);
    return days;
}

// "Jul 4, 1999", or "Jul 4, 1999 - Aug 1, 1999, 5 days".
QString SpanInWords(const std::set<GridDay>& days)
{
    if (days.empty()) return {};
    const QString first = InWords(*days.begin());
    if (days.size() == 1) return first;
    return u"%1 - %2, %3 days"_s.arg(first, InWords(*days.rbegin())).arg(days.size());
}

bool IsOver(const ExtractedAlarm& alarm, const QDateTime& now)
{
    const auto [year, month, day] = alarm.day;
    return QDateTime(QDate(year, month, day), QTime(0, 0).addSecs(60 * alarm.minute)) < now;
}
} // namespace

ImportForm::ImportForm(QWidget* owner, const QString& fileName, const Read& read, const QDate& endlessUntil,
                       ImportedFile file, const QDateTime& now)
    : QDialog(owner), m_dateOrder(LocalDateOrder()), m_fileName(fileName), m_read(read), m_endlessUntil(endlessUntil),
      m_file(std::move(file)), m_now(now)
{
    setObjectName(u"ImportForm"_s);
    setWindowTitle(u"Import"_s);
    auto* column = DialogColumn(*this, QLayout::SetDefaultConstraint);
    m_lblSum = AddTo<QLabel>(*column, "lblSum", {});
    m_lblSum->setWordWrap(true);
    column->addWidget(MakeList(), 1);
    AddOptions(*column);
    column->addWidget(MakeOkCancel(*this));
    Fill();
    m_entries->setFocus();
    CenterOnScreen(*this);
}

QSize ImportForm::sizeHint() const
{
    return {920, 560};
}

QTreeWidget* ImportForm::MakeList()
{
    m_entries = Named(new QTreeWidget, "lstEntries");
    m_entries->setAccessibleName(u"Entries"_s);
    m_entries->setHeaderLabels({u"Days"_s, u"Entry"_s, u"Remark"_s});
    m_entries->setRootIsDecorated(false);
    m_entries->setUniformRowHeights(true);
    QHeaderView& header = *m_entries->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(What, QHeaderView::Stretch);
    const QFontMetrics letters = m_entries->fontMetrics();
    m_entries->setColumnWidth(Days, letters.horizontalAdvance(u"[x] Mar 30, 2026 - Mar 30, 2026, 1000 days "_s));
    m_entries->setColumnWidth(Remark, letters.horizontalAdvance(u"Cancelled: what was imported of it is taken out."_s));
    connect(m_entries, &QTreeWidget::itemChanged, this, [this] { ShowSum(); });
    return m_entries;
}

void ImportForm::AddOptions(QBoxLayout& column)
{
    auto* all = Named(new QPushButton(u"Tick &All"_s), "btnAll");
    auto* none = Named(new QPushButton(u"Tick &None"_s), "btnNone");
    connect(all, &QPushButton::clicked, this, [this] { TickAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { TickAll(false); });
    for (QPushButton* button : {all, none})
        button->setAutoDefault(false);
    m_chkAlarms = Named(new QCheckBox, "chkAlarms");
    m_chkAlarms->setChecked(true);
    column.addLayout(DialogRow(Rhythm, {all, none, nullptr, m_chkAlarms}));
    m_maskUntil = MakeDateBox("maskUntil", m_dateOrder.mask);
    ShowUntil();
    connect(m_maskUntil, &QLineEdit::editingFinished, this, [this] { ReadAgain(); });
    connect(m_maskUntil, &QLineEdit::textChanged, this, [this] {
        if (!m_maskUntil->hasFocus()) ReadAgain(); // picked in the calendar
    });
    auto* pick = Named(new DateButton(m_maskUntil, m_dateOrder.label, u"Pick the last day"_s), "btnPickDate");
    m_until = new QWidget;
    QBoxLayout* row =
        DialogRow(Rhythm, {LabelOf(u"Write events that never end &until"_s, m_maskUntil), m_maskUntil, pick, nullptr});
    row->setContentsMargins({});
    m_until->setLayout(row);
    column.addWidget(m_until);
}

void ImportForm::Fill()
{
    const QSignalBlocker quiet(m_entries);
    m_entries->clear();
    QList<QTreeWidgetItem*> rows;
    for (const ImportedEntry& entry : m_file.entries) {
        const auto days = DaysOf(entry);
        auto* row = new QTreeWidgetItem({SpanInWords(days), entry.title, entry.remark});
        const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
        row->setFlags(days.empty() ? usual : usual | Qt::ItemIsUserCheckable);
        if (!days.empty()) row->setCheckState(Days, entry.isTicked ? Qt::Checked : Qt::Unchecked);
        rows += row;
    }
    for (const QString& line : m_file.leftOut)
        rows += new QTreeWidgetItem({u"Left out"_s, line, {}});
    for (QTreeWidgetItem* row : rows)
        for (const Column column : {What, Remark})
            row->setToolTip(column, row->text(column));
    m_entries->addTopLevelItems(rows);
    const auto any = [this](auto has) { return std::ranges::any_of(m_file.entries, has); };
    m_entries->setColumnHidden(Remark, !any([](const ImportedEntry& entry) { return !entry.remark.isEmpty(); }));
    m_chkAlarms->setVisible(any([](const ImportedEntry& entry) { return !entry.alarms.empty(); }));
    m_until->setVisible(any([](const ImportedEntry& entry) { return entry.isEndless; }));
    ShowSum();
}

bool ImportForm::IsTicked(std::size_t entry) const
{
    return m_entries->topLevelItem(static_cast<int>(entry))->data(Days, Qt::CheckStateRole).toInt() == Qt::Checked;
}

void ImportForm::ShowSum()
{
    std::set<GridDay> days;
    std::size_t ticked = 0, alarms = 0;
    for (std::size_t i = 0; i < m_file.entries.size(); ++i) {
        const ImportedEntry& entry = m_file.entries[i];
        if (!IsTicked(i)) continue;
        ++ticked;
        days.merge(DaysOf(entry));
        alarms += std::ranges::count_if(entry.alarms, [this](const auto& alarm) { return !IsOver(alarm, m_now); });
    }
    const QString entries = m_file.entries.size() == 1 ? u"entry"_s : u"entries"_s;
    const QString span = days.empty() ? QString() : u": "_s + SpanInWords(days);
    m_lblSum->setText(u"%1 of %2 %3 of %4%5."_s.arg(ticked).arg(m_file.entries.size()).arg(entries, m_fileName, span));
    m_chkAlarms->setText(u"With their a&larms that are still to come (%1)"_s.arg(alarms));
    m_chkAlarms->setEnabled(alarms > 0);
}

void ImportForm::TickAll(bool isTicked)
{
    {
        const QSignalBlocker quiet(m_entries);
        for (std::size_t i = 0; i < m_file.entries.size(); ++i) {
            QTreeWidgetItem* const row = m_entries->topLevelItem(static_cast<int>(i));
            if (row->flags() & Qt::ItemIsUserCheckable)
                row->setCheckState(Days, isTicked ? Qt::Checked : Qt::Unchecked);
        }
    }
    m_entries->viewport()->update();
    ShowSum();
}

QDate ImportForm::UntilInBox() const
{
    if (!m_maskUntil->IsComplete()) return {};
    const auto day = DayOfKey(fnFnGetQMTDate(m_dateOrder.EntryDate(m_maskUntil->Text())));
    return day ? QDate(day->year, day->month, day->day) : QDate();
}

void ImportForm::ShowUntil()
{
    m_maskUntil->SetText(m_dateOrder.BoxText(m_endlessUntil.year(), m_endlessUntil.month(), m_endlessUntil.day()));
}

// The person's ticks stay.
void ImportForm::ReadAgain()
{
    const QDate until = UntilInBox();
    if (!until.isValid() || until == m_endlessUntil) return;
    auto file = m_read(until);
    if (!file) return ShowUntil();
    m_endlessUntil = until;
    for (std::size_t i = 0; i < m_file.entries.size(); ++i)
        m_ticks[m_file.entries[i].id] = IsTicked(i);
    m_file = std::move(*file);
    for (ImportedEntry& entry : m_file.entries)
        entry.isTicked = m_ticks.value(entry.id, entry.isTicked);
    Fill();
}

std::vector<ImportedEntry> ImportForm::Ticked() const
{
    std::vector<ImportedEntry> ticked;
    for (std::size_t i = 0; i < m_file.entries.size(); ++i) {
        const ImportedEntry& entry = m_file.entries[i];
        if (!IsTicked(i) && !entry.isCancelled) continue;
        ImportedEntry& wanted = ticked.emplace_back(entry);
        wanted.takesAlarms = m_chkAlarms->isChecked() || !IsTicked(i);
        if (IsTicked(i)) continue;
        wanted.notes.clear();
        wanted.alarms.clear();
    }
    return ticked;
}

void ImportForm::accept()
{
    if (!m_until->isVisible() || UntilInBox().isValid()) return QDialog::accept();
    messages::Tell(u"The last day is not a valid date"_s);
    m_maskUntil->setFocus();
    m_maskUntil->selectAll();
}
