#include "platform/spelling/personalwords.h"

void PersonalWords::Refresh()
{
    const inistorage::Identity now = inistorage::IdentityOf(m_path);
    if (now == m_read) return;
    const auto bytes = inistorage::Read(m_path);
    if (!bytes) return;
    m_read = now;
    m_words.clear();
    for (const QByteArray& line : bytes->split('\n'))
        if (const QString word = QString::fromUtf8(line).trimmed(); !word.isEmpty()) m_words += word;
}

// Only this word's line changes, so words that another program has added meanwhile stay.
bool PersonalWords::Change(const QString& word, bool isAdded)
{
    const bool isDone = inistorage::Change(m_path, [&](const QByteArray& bytes) {
        QByteArrayList lines = bytes.split('\n');
        lines.removeIf(
            [&](const QByteArray& line) { return line.isEmpty() || QString::fromUtf8(line).trimmed() == word; });
        if (isAdded) lines += word.toUtf8();
        return std::optional(lines.isEmpty() ? QByteArray() : lines.join('\n') + '\n');
    });
    m_read = {};
    Refresh();
    return isDone;
}
