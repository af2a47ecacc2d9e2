// Shows pages of the help and nothing else: what lies outside the help is never fetched.
#pragma once

#include "platform/desktop/helpbook.h"

#include <QTextBrowser>

class HelpPage : public QTextBrowser
{
    Q_OBJECT

public:
    HelpPage(const HelpBook& book, QWidget* parent);

    // Marks the words on this page and on those shown later.
    void MarkWords(const QList<QRegularExpression>& words);
    void GoToNextMark(); // from the caret on, and round

    QVariant loadResource(int type, const QUrl& address) override;

protected:
    void doSetSource(const QUrl& address, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;

private:
    QVariant Picture(const QUrl& address) const;
    void Mark();

    const HelpBook& m_book;
    QList<QRegularExpression> m_words;
};
