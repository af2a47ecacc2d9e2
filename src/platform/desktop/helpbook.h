// The help file: a binary resource of pages and pictures behind its checksum. Knows what stands in it, no window.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

#include <memory>

struct HelpTopic
{
    QString Chapter; // the heading above it in the table of contents
    QString Title;
    QUrl Page;
};

class HelpBook
{
public:
    // Null if the file is missing, cannot be read, or is not whole to the last byte.
    static std::unique_ptr<HelpBook> Open(const QString& file);
    ~HelpBook();
    Q_DISABLE_COPY_MOVE(HelpBook)

    // In the order of the table of contents. There is at least one, and the first is the home page.
    const QList<HelpTopic>& Topics() const { return m_topics; }

    static QUrl PageOf(const QString& name); // "saving" is the address of saving.html

    bool Holds(const QUrl& address) const; // a page, whatever part of it; false for all that lies outside the help
    QByteArray Read(const QUrl& address) const;

    // Positions in Topics of those that hold all typed words in title or text, those that have them in the title
    // first. A word counts where one begins with it, in any letter case. Nothing typed finds nothing.
    QList<qsizetype> Search(const QString& typed);
    static QList<QRegularExpression> WordsOf(const QString& typed);

private:
    explicit HelpBook(QByteArray resource);
    void ReadContents();

    QByteArray m_resource; // stays registered, and where it is, as long as this lives
    QList<HelpTopic> m_topics;
    QStringList m_texts; // of the topics, in their order; empty until the first search
};
