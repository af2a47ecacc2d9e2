#include "tools/hitlist.h"

#include "planners/exporting.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "state/plannerstate.h"
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
constexpr int TimeOfSlice = 8;     // milliseconds; a key or a click waits no longer
constexpr int WaitForOthers = 250; // milliseconds, after somebody else's save was in the way
constexpr int ShortWork = 500;     // milliseconds

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

HitList::HitList(HitCell& cell, const HitListNeeds& needs) : m_cell(cell), m_needs(needs)
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
    for (QTimer* timer : {&m_slices, &m_following})
        timer->setSingleShot(true);
    connect(&m_slices, &QTimer::timeout, this, Guarded(ListLiteral, [this] { Slice(); }));
    connect(&m_following, &QTimer::timeout, this, Guarded(ListLiteral, [this] { Follow(); }));
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
    connect(m_btnStop, &QPushButton::clicked, this, Guarded(ListLiteral, [this] { Stop(); }));
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
    m_cell.Show(note, Query());
}

QString HitList::Name() const
{
    return u"%1 with %2"_s.arg(CountOf(m_model->Notes()), m_words.simplified());
}

void HitList::Print()
{
    m_needs.printing->Print(window(), Name(), *m_model);
}

void HitList::Export()
{
    QStringList keys;
    for (const NoteHit& note : m_model->Notes())
        keys += note.key;
    m_needs.exporting->ExportDays(keys, Name());
}

HitList::Source HitList::Present() const
{
    Source source = {g_sNotesFile, g_dbPlanner.Revision(), {}};
    const auto typed = m_needs.typed().NotesOf(g_sNotesFile);
    for (auto note = typed.cbegin(); note != typed.cend(); ++note)
        source.unsaved.insert(note.key(), note->rtf);
    return source;
}

// An error of the engine is shown in the list's place.
template <typename Step>
void HitList::Try(Step step)
{
    try {
        step();
    } catch (const RunTimeError& error) {
        Fail(error);
    }
}

void HitList::Look(const QString& words)
{
    m_words = words;
    const WordQuery query(words);
    if (query.IsEmpty() || !HasPlanner()) {
        m_search = {};
        m_slices.stop();
        m_isAgain = m_isStopped = false;
        return Show(0);
    }
    Try([&] {
        const Source source = Present();
        if (m_isStopped || source != m_source || !query.Narrows(m_search.Query())) return Begin(source, query, false);
        m_search.Narrow(query);
        m_isShown = m_isAgain = false;
        m_since.start();
        m_slices.start(0);
    });
}

void HitList::Begin(const Source& source, const WordQuery& query, bool again)
{
    m_source = source;
    m_isAgain = again;
    m_isShown = m_isStopped = false;
    m_since.start();
    m_search.Begin(g_dbPlanner, query, source.unsaved);
    m_slices.start(0);
}

// Not at once: the caller may be in the midst of a save.
void HitList::FollowPlanner()
{
    if (isVisible()) m_following.start(0);
}

void HitList::Follow()
{
    const WordQuery query(m_words);
    if (query.IsEmpty() || !HasPlanner()) return Look(m_words);
    Try([&] {
        const Source source = Present();
        m_tries = 0;
        if (m_isStopped && source.planner == m_source.planner) return; // by the person
        if (source != m_source || query != Query()) return Begin(source, query, query == Query());
        if (!m_search.IsDone()) m_slices.start(0);
    });
}

void HitList::Slice()
{
    if (m_search.IsDone() && m_isShown) return;
    Try([this] {
        const std::size_t from = m_search.Step(QDeadlineTimer(TimeOfSlice));
        const bool isReady = m_search.IsDone() || (!m_isAgain && !m_search.Found().empty());
        if (m_isShown || isReady) Show(m_isShown ? from : 0);
        if (!m_search.IsDone()) m_slices.start(0);
        ShowProgress();
    });
}

// Where the list is replaced, the person stays at the same day.
void HitList::Show(std::size_t from)
{
    const QModelIndex current = m_lstFound->currentIndex();
    const QString key = current.isValid() ? m_model->Notes().at(std::size_t(current.row())).key : QString();
    const int top = m_lstFound->verticalScrollBar()->value();
    m_isShown = true;
    m_pages->setCurrentWidget(m_lstFound);
    m_model->Show(m_search.Found(), Query(), from);
    m_lstFound->setFocusPolicy(m_model->rowCount() == 0 ? Qt::NoFocus : Qt::StrongFocus);
    ShowProgress();
    if (m_isAgain) m_lstFound->verticalScrollBar()->setValue(top);
    if (key.isEmpty() || m_lstFound->currentIndex().isValid()) return;
    const auto& notes = m_model->Notes();
    const auto same = std::ranges::find(notes, key, &NoteHit::key);
    if (same == notes.end()) return;
    m_lstFound->setCurrentIndex(m_model->index(static_cast<int>(same - notes.begin())));
    m_lstFound->verticalScrollBar()->setValue(top);
}

void HitList::ShowProgress()
{
    const bool isDone = m_search.IsDone(), isLong = !isDone && m_since.elapsed() > ShortWork;
    const auto& found = m_search.Found();
    QString count = Query().IsEmpty() ? QString() : CountOf(m_model->Notes());
    if (isLong) count = u"%1, %2 % searched"_s.arg(CountOf(found)).arg(static_cast<int>(m_search.Done() * 100));
    if (m_isStopped) count += u" so far"_s;
    m_lblCount->setText(count);
    m_btnStop->setVisible(isLong);
    for (QPushButton* button : {m_btnPrint, m_btnExport})
        button->setEnabled(isDone && !m_model->Notes().empty());
}

void HitList::Stop()
{
    m_search.End();
    m_slices.stop();
    m_isStopped = true;
    Show(0);
}

// A colleague's save is over in a moment. After other errors the next key or the next activation tries again.
void HitList::Fail(const RunTimeError& error)
{
    constexpr int MostTries = 8;
    m_slices.stop();
    if (error.Number == engineerrors::Busy && ++m_tries < MostTries) return m_following.start(WaitForOthers);
    LogError(error, ListLiteral);
    m_tries = 0;
    m_search.End();
    m_source = {};
    m_isStopped = true;
    m_lblTrouble->setText(error.Number == engineerrors::Closed ? QString() : error.Description);
    m_pages->setCurrentWidget(m_lblTrouble);
    m_lblCount->clear();
    m_btnStop->hide();
    for (QPushButton* button : {m_btnPrint, m_btnExport})
        button->setEnabled(false);
}
