// Shows pages of the help only; nothing outside is fetched.
#pragma once

#include "platform/desktop/helpbook.h"

#include <QTextBrowser>

class HelpPage : public QTextBrowser
{
    Q_OBJECT

public:
    HelpPage(const HelpBook& book, QWidget* parent);

    // Marks the words on this page and later ones.
    void MarkWords(const QList<QRegularExpression>& words);
    void GoToNextMark(); // after the caret, cyclic

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
