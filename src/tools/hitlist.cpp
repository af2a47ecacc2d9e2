#include "tools/hitlist.h"

#include "planners/exporting.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/runtime/errortail.h"
#include "tools/hitcell.h"
#include "tools/listprinting.h"

#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>

#include <algorithm>

namespace {
constexpr QLatin1StringView ListLiteral(" in FindWordForm, HitList");
constexpr qsizetype BeforeOnPaper = 300; // the word, on paper

QString Some(qsizetype count, QLatin1StringView one)
{
    return u"%1 %2%3"_s.arg(count).arg(one).arg(count == 1 ? QLatin1StringView() : "s"_L1);
}
} // namespace

QString CountOf(const std::vector<NoteHit>& notes)
{
    const auto memos = std::ranges::count_if(notes, [](const NoteHit& note) { return note.place.memo != 0; });
    const auto days = static_cast<qsizetype>(notes.size()) - memos;
    if (notes.empty()) return u"No day"_s;
    if (memos == 0) return Some(days, "day"_L1);
    return days == 0 ? Some(memos, "memo"_L1) : u"%1 and %2"_s.arg(Some(days, "day"_L1), Some(memos, "memo"_L1));
}

HitList::HitList(HitCell& cell, const HitListNeeds& needs)
    : m_cell(cell), m_needs(needs),
      m_run(needs.typed, {[this](std::size_t from, bool again) { Show(from, again); }, [this] { ShowProgress(); },
                          [this](const QString& trouble) { ShowTrouble(trouble); }})
{
    m_model = new FoundModel(this);
    m_lstFound = Named(new QListView, "lstFound");
    m_lstFound->setAccessibleName(u"Days with the word"_s);
    m_lstFound->setModel(m_model);
    m_lstFound->setItemDelegate(new FoundDelegate(*m_model, m_lstFound));
    m_lstFound->setUniformItemSizes(true);
    m_lstFound->setFocusPolicy(Qt::NoFocus); // until it has rows, or nothing would show the focus
    m_lstFound->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_lblTrouble = Named(new QLabel, "lblTrouble");
    m_lblTrouble->setWordWrap(true);
    m_lblTrouble->setTextFormat(Qt::PlainText);
    m_lblTrouble->setAlignment(Qt::AlignCenter);
    m_pages = new QStackedWidget;
    m_pages->addWidget(m_lstFound);
    m_pages->addWidget(m_lblTrouble);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Rhythm);
    column->addWidget(m_pages, 1);
    column->addWidget(MakeFoot());
    connect(m_lstFound, &QListView::clicked, this, Guarded(ListLiteral, [this] { Choose(); }));
}

QWidget* HitList::MakeFoot()
{
    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Rhythm);
    m_lblCount = AddTo<QLabel>(*row, "lblCount", QString());
    row->addStretch(1);
    m_btnStop = AddTo<PressedByReturn<QPushButton>>(*row, "btnStop", u"&Stop"_s);
    m_btnPrint = AddTo<PressedByReturn<QPushButton>>(*row, "btnPrintList", u"&Print List..."_s);
    m_btnExport = AddTo<PressedByReturn<QPushButton>>(*row, "btnExportList", u"&Export..."_s);
    for (QPushButton* button : {m_btnStop, m_btnPrint, m_btnExport})
        button->setAutoDefault(false);
    m_btnStop->hide();
    connect(m_btnStop, &QPushButton::clicked, this, Guarded(ListLiteral, [this] { m_run.Stop(); }));
    connect(m_btnPrint, &QPushButton::clicked, this, Guarded(ListLiteral, [this] { Print(); }));
    connect(m_btnExport, &QPushButton::clicked, this, Guarded(ListLiteral, [this] { Export(); }));
    return foot;
}

bool HitList::IsEntered() const
{
    return m_lstFound->hasFocus();
}

void HitList::Enter()
{
    if (m_model->rowCount() == 0) return;
    m_lstFound->setFocus();
    if (!m_lstFound->currentIndex().isValid()) m_lstFound->setCurrentIndex(m_model->index(0));
}

void HitList::Choose()
{
    const QModelIndex current = m_lstFound->currentIndex();
    if (!current.isValid()) return;
    const NoteHit note = m_model->Notes().at(std::size_t(current.row())); // the turn may save, and so change the list
    m_cell.Show(note, m_run.Query());
}

QString HitList::Name() const
{
    return u"%1 with %2"_s.arg(CountOf(m_model->Notes()), m_run.Query().Typed().simplified());
}

// The list may change while the person chooses a printer.
void HitList::Print()
{
    std::vector<FoundLine> lines;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        lines.push_back(m_model->LineAt(row));
        CutAround(lines.back(), BeforeOnPaper);
    }
    m_needs.printing->Print(window(), Name(), lines);
}

void HitList::Export()
{
    QStringList keys;
    for (const NoteHit& note : m_model->Notes())
        keys += note.key;
    m_needs.exporting->ExportDays(keys, Name());
}

void HitList::FollowPlanner()
{
    if (isVisible()) m_run.Follow();
}

// Where the list is replaced, the person stays at the same day.
void HitList::Show(std::size_t from, bool again)
{
    const QModelIndex current = m_lstFound->currentIndex();
    const QString key = current.isValid() ? m_model->Notes().at(std::size_t(current.row())).key : QString();
    const int top = m_lstFound->verticalScrollBar()->value();
    m_pages->setCurrentWidget(m_lstFound);
    m_model->Show(m_run.Found(), m_run.Query(), from);
    m_lstFound->setFocusPolicy(m_model->rowCount() == 0 ? Qt::NoFocus : Qt::StrongFocus);
    ShowProgress();
    if (again) m_lstFound->verticalScrollBar()->setValue(top);
    if (key.isEmpty() || m_lstFound->currentIndex().isValid()) return;
    const auto& notes = m_model->Notes();
    const auto same = std::ranges::find(notes, key, &NoteHit::key);
    if (same == notes.end()) return;
    m_lstFound->setCurrentIndex(m_model->index(static_cast<int>(same - notes.begin())));
    m_lstFound->verticalScrollBar()->setValue(top);
}

void HitList::ShowProgress()
{
    QString count = m_run.Query().IsEmpty() ? QString() : CountOf(m_model->Notes());
    if (m_run.IsLong())
        count = u"%1, %2 % searched"_s.arg(CountOf(m_run.Found())).arg(static_cast<int>(m_run.Done() * 100));
    if (m_run.IsStopped() && !count.isEmpty()) count += u" so far"_s;
    m_lblCount->setText(m_pages->currentWidget() == m_lblTrouble ? QString() : count);
    m_btnStop->setVisible(m_run.IsLong());
    for (QPushButton* button : {m_btnPrint, m_btnExport})
        button->setEnabled(m_run.IsDone() && m_pages->currentWidget() == m_lstFound && !m_model->Notes().empty());
}

void HitList::ShowTrouble(const QString& trouble)
{
    m_lblTrouble->setText(trouble);
    m_pages->setCurrentWidget(m_lblTrouble);
}
