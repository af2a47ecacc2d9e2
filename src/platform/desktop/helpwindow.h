// The help window: table of contents and search on the left, the page on the right.
#pragma once

#include "platform/desktop/helpbook.h"
#include "platform/desktop/helpcommand.h"

#include <QWidget>

class HelpPage;
class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QTabWidget;
class QTreeWidget;

class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    HelpWindow(QWidget* owner, const QString& file, std::unique_ptr<HelpBook> book);

    const QString& File() const { return m_file; }
    void Run(HelpCommand command);

private:
    void AddCommands(QBoxLayout& bar);
    QWidget* MakeContents();
    QWidget* MakeSearch();
    void FitToScreen();

    void GoHome();
    void GoToSearch();
    void ShowPage(const QUrl& page);
    void FollowPage(const QUrl& page); // title, and its line in the contents
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
