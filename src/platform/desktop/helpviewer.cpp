#include "platform/desktop/helpviewer.h"

#include "platform/desktop/helppage.h"
#include "platform/desktop/pressedbyreturn.h"

#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <functional>

namespace {
constexpr int PageRole = Qt::UserRole;
constexpr QSize UsualSize(900, 640);           // logical pixels
constexpr int LeastLeft = 170, MostLeft = 230; // width of the left column
constexpr int Gap = 8;
constexpr int Indent = 14;
constexpr int LineGap = 5; // between list lines

const QString HowToUseHelp = u"using-help"_s;

template <typename Part>
Part* Named(Part* part, const char* name, const char* accessible)
{
    part->setObjectName(QString::fromLatin1(name));
    part->setAccessibleName(QString::fromLatin1(accessible));
    return part;
}

QSize LineSize(const QWidget& list)
{
    return {0, list.fontMetrics().height() + LineGap};
}

QTreeWidgetItem* ItemOf(const QTreeWidget& tree, const QUrl& page)
{
    for (QTreeWidgetItemIterator item(const_cast<QTreeWidget*>(&tree)); *item; ++item) {
        if ((*item)->data(0, PageRole).toUrl() == page) return *item;
    }
    return nullptr;
}

// Table of contents and search on the left, the page on the right.
class HelpWindow : public QWidget
{
public:
    HelpWindow(QWidget* owner, const QString& file, std::unique_ptr<HelpBook> book);

    const QString& File() const { return m_file; }
    void Run(HelpCommand command);

private:
    void AddCommands(QBoxLayout& bar);
    QWidget* MakeContents();
    QWidget* MakeSearch();
    void FitToScreen();

    void GoHome() { ShowPage(m_book->Topics().first().Page); }
    void GoToSearch();
    void ShowPage(const QUrl& page);
    void FollowPage(const QUrl& page); // sets the title and selects the page in the contents
    void ListHits();
    void ShowHit(int row);
    void OpenFirstHit();
    void MarkWords();

    const QString m_file;
    std::unique_ptr<HelpBook> m_book;
    HelpPage* m_page;
    QTabWidget* m_tabs;
    QTreeWidget* m_contents = nullptr;
    QLineEdit* m_words = nullptr;
    QListWidget* m_hits = nullptr;
    QLabel* m_found = nullptr;
};

HelpWindow::HelpWindow(QWidget* owner, const QString& file, std::unique_ptr<HelpBook> book)
    : QWidget(owner, Qt::Window), m_file(file), m_book(std::move(book)),
      m_page(Named(new HelpPage(*m_book, this), "helpPage", "Help page")),
      m_tabs(Named(new QTabWidget(this), "helpTabs", "Ways to find a topic"))
{
    m_tabs->addTab(MakeContents(), u"&Contents"_s);
    m_tabs->addTab(MakeSearch(), u"&Search"_s);
    connect(m_tabs, &QTabWidget::currentChanged, this, &HelpWindow::MarkWords);
    connect(m_page, &QTextBrowser::sourceChanged, this, &HelpWindow::FollowPage);

    auto* const columns = new QVBoxLayout(this);
    columns->setContentsMargins(Gap, Gap, Gap, Gap);
    auto* const bar = new QHBoxLayout;
    columns->addLayout(bar);
    AddCommands(*bar);
    auto* const splitter = new QSplitter(this);
    splitter->addWidget(m_tabs);
    splitter->addWidget(m_page);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    columns->addWidget(splitter, 1);
    FitToScreen();
    const int left = std::clamp(width() / 4, LeastLeft, MostLeft);
    splitter->setSizes({left, width() - left});
}

void HelpWindow::AddCommands(QBoxLayout& bar)
{
    struct Command
    {
        const char* Name;
        QKeySequence Key;
        std::function<void()> Act;
        const char* Text = nullptr; // button text, if it has a button
        const char* Tip = nullptr;
        void (QTextBrowser::*Available)(bool) = nullptr;
    };
    const Command commands[] = {
        {"helpBack", Qt::ALT | Qt::Key_Left, [this] { m_page->backward(); }, "Back", "The page before",
         &QTextBrowser::backwardAvailable},
        {"helpForward", Qt::ALT | Qt::Key_Right, [this] { m_page->forward(); }, "Forward",
         "The page you came back from", &QTextBrowser::forwardAvailable},
        {"helpHome", Qt::ALT | Qt::Key_Home, [this] { GoHome(); }, "Home", "The first page of the help"},
        {"helpFind", Qt::CTRL | Qt::Key_F, [this] { GoToSearch(); }},
        {"helpNextMark", Qt::Key_F3, [this] { m_page->GoToNextMark(); }},
        {"helpClose", Qt::Key_Escape, [this] { close(); }},
    };
    for (const Command& command : commands) {
        auto* const action = new QAction(QString::fromLatin1(command.Text), this);
        action->setObjectName(QString::fromLatin1(command.Name));
        action->setShortcut(command.Key);
        connect(action, &QAction::triggered, this, command.Act);
        addAction(action);
        if (!command.Text) continue;
        action->setToolTip(
            u"%1 (%2)"_s.arg(QString::fromLatin1(command.Tip), command.Key.toString(QKeySequence::NativeText)));
        auto* const button = new PressedByReturn<QToolButton>(this);
        button->setDefaultAction(action);
        button->setFocusPolicy(Qt::TabFocus);
        bar.addWidget(button);
        if (!command.Available) continue;
        action->setEnabled(false);
        connect(m_page, command.Available, action, &QAction::setEnabled);
    }
    bar.addStretch();
}

QWidget* HelpWindow::MakeContents()
{
    m_contents = Named(new QTreeWidget(this), "helpContents", "Contents");
    m_contents->setHeaderHidden(true);
    m_contents->setIndentation(Indent);
    QTreeWidgetItem* chapter = nullptr;
    for (const HelpTopic& topic : m_book->Topics()) {
        if (!chapter || chapter->text(0) != topic.Chapter) {
            chapter = new QTreeWidgetItem(m_contents, {topic.Chapter});
            chapter->setExpanded(true);
            chapter->setSizeHint(0, LineSize(*m_contents));
        }
        auto* const item = new QTreeWidgetItem(chapter, {topic.Title});
        item->setData(0, PageRole, topic.Page);
        item->setToolTip(0, topic.Title);
        item->setSizeHint(0, LineSize(*m_contents));
    }
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item) ShowPage(item->data(0, PageRole).toUrl());
    });
    return m_contents;
}

QWidget* HelpWindow::MakeSearch()
{
    m_words = Named(new QLineEdit(this), "helpWords", "Words to find in the help");
    m_words->setPlaceholderText(u"Type words to find"_s);
    m_words->setClearButtonEnabled(true);
    m_hits = Named(new QListWidget(this), "helpHits", "Topics found");
    m_found = Named(new QLabel(this), "helpFound", "Number of topics found");
    connect(m_words, &QLineEdit::textChanged, this, &HelpWindow::ListHits);
    connect(m_words, &QLineEdit::returnPressed, this, &HelpWindow::OpenFirstHit);
    connect(m_hits, &QListWidget::currentRowChanged, this, &HelpWindow::ShowHit);

    auto* const search = new QWidget(this);
    auto* const lines = new QVBoxLayout(search);
    lines->setContentsMargins(Gap, Gap, Gap, Gap);
    lines->addWidget(m_words);
    lines->addWidget(m_hits, 1);
    lines->addWidget(m_found);
    return search;
}

void HelpWindow::FitToScreen()
{
    const QRect room = parentWidget()->screen()->availableGeometry();
    resize(UsualSize.boundedTo({room.width() * 95 / 100, room.height() * 88 / 100})); // leaves room for the frame
    move(room.center() - rect().center());
}

void HelpWindow::Run(HelpCommand command)
{
    if (m_page->source().isEmpty() || command == HelpCommand::Contents) GoHome();
    if (command == HelpCommand::HowToUseHelp) ShowPage(HelpBook::PageOf(HowToUseHelp));
    m_tabs->setCurrentIndex(0);
    m_contents->setFocus();
    if (command == HelpCommand::Search) GoToSearch();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void HelpWindow::GoToSearch()
{
    m_tabs->setCurrentIndex(1);
    m_words->setFocus();
    m_words->selectAll();
}

void HelpWindow::ShowPage(const QUrl& page)
{
    if (!page.isEmpty() && page != m_page->source()) m_page->setSource(page);
}

void HelpWindow::FollowPage(const QUrl& page)
{
    setWindowTitle(m_page->documentTitle() + u" - Orrelin Help"_s);
    QTreeWidgetItem* const item = ItemOf(*m_contents, page.adjusted(QUrl::RemoveFragment));
    if (item) m_contents->setCurrentItem(item);
}

void HelpWindow::ListHits()
{
    const QList<qsizetype> hits = m_book->Search(m_words->text());
    m_hits->clear();
    for (const qsizetype hit : hits) {
        auto* const item = new QListWidgetItem(m_book->Topics()[hit].Title, m_hits);
        item->setData(PageRole, m_book->Topics()[hit].Page);
        item->setToolTip(item->text());
        item->setSizeHint(LineSize(*m_hits));
    }
    const QString found = hits.size() == 1 ? u"1 topic"_s : u"%1 topics"_s.arg(hits.size());
    m_found->setText(m_words->text().trimmed().isEmpty() ? QString() : found);
    MarkWords();
}

void HelpWindow::ShowHit(int row)
{
    if (row >= 0) ShowPage(m_hits->item(row)->data(PageRole).toUrl());
}

void HelpWindow::OpenFirstHit()
{
    if (m_hits->count() == 0) return;
    m_hits->setCurrentRow(0);
    m_hits->setFocus();
}

void HelpWindow::MarkWords()
{
    const bool searching = m_tabs->currentIndex() == 1;
    m_page->MarkWords(searching ? HelpBook::WordsOf(m_words->text()) : QList<QRegularExpression>());
}
} // namespace

bool ShowHelp(QWidget* owner, const QString& file, HelpCommand command)
{
    static QPointer<HelpWindow> shown; // deleted with its owner
    if (shown && shown->File() != file) delete shown;
    if (!shown) {
        std::unique_ptr<HelpBook> book = HelpBook::Open(file);
        if (!book) return false;
        shown = new HelpWindow(owner->window(), file, std::move(book));
    }
    shown->Run(command);
    return true;
}
