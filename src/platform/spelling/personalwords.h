// The words that a person has added to the dictionaries, in a file: UTF-8, one a line. Programs that run at the same
// time share it.
#pragma once

#include "platform/profile/inistorage.h"

#include <QSet>
#include <QString>

class PersonalWords
{
public:
    explicit PersonalWords(const QString& path) : m_path(path) {}

    const QString& Path() const { return m_path; }
    const QSet<QString>& Words() const { return m_words; }
    void Refresh(); // reads the file if it has changed
    // False: the file could not be written and is as it was.
    bool Add(const QString& word) { return Change(word, true); }
    bool Remove(const QString& word) { return Change(word, false); }

private:
    bool Change(const QString& word, bool isAdded);

    const QString m_path;
    QSet<QString> m_words;
    inistorage::Identity m_read;
};
