// The help file: a binary resource of pages and pictures with a checksum. Has no window.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

#include <memory>

struct HelpTopic
{
    QString Chapter; // its heading in the table of contents
    QString Title;
    QUrl Page;
};

class HelpBook
{
public:
    // Null if the file is missing, unreadable or damaged.
    static std::unique_ptr<HelpBook> Open(const QString& file);
    ~HelpBook();
    Q_DISABLE_COPY_MOVE(HelpBook)

    // In the order of the contents; at least one. The first is the home page.
    const QList<HelpTopic>& Topics() const { return m_topics; }

    static QUrl PageOf(const QString& name); // "saving" gives saving.html

    bool Holds(const QUrl& address) const; // ignores fragments; false for everything outside the help
    QByteArray Read(const QUrl& address) const;

    // Indexes of the topics that contain all typed words, matches in titles first. A match begins a word, in any letter
    // case. Nothing typed matches nothing.
    QList<qsizetype> Search(const QString& typed);
    static QList<QRegularExpression> WordsOf(const QString& typed);

private:
    explicit HelpBook(QByteArray resource);
    void ReadContents();

    QByteArray m_resource; // registered while this exists
    QList<HelpTopic> m_topics;
    QStringList m_texts; // of the topics; empty until the first search
};
