// The criterion of a Find: [Field] LIKE "pattern". Shared by the stores, so that all of them find the same.
#pragma once

#include <QByteArray>
#include <QString>

struct Criterion
{
    QString Field;
    QString Pattern;
};

Criterion ParseCriterion(const QString& text); // 3077

// How the bytes of a stored text read as characters; plain UTF-8 unless set otherwise. A view must leave ASCII letters
// that stand in a row in that row.
using TextView = QString (*)(const QByteArray& stored);
void SetTextView(TextView view); // null for the plain one

// One pattern, made ready for many texts.
class LikePattern
{
public:
    explicit LikePattern(const QString& pattern);
    bool Matches(QByteArrayView stored) const;
    // A piece of ASCII, in lower case, that every text that matches contains in some case; may be empty.
    const QByteArray& Run() const { return m_run; }

private:
    QString m_folded;
    QByteArray m_run; // the longest run of ASCII in the pattern, in lower case: a text without it need not be read
};
