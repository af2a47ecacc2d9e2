#include "platform/engine/like.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
QString PlainView(const QByteArray& stored)
{
    return QString::fromUtf8(stored);
}

TextView g_textView = PlainView;

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

QByteArray LongestAsciiRun(const QString& folded)
{
    static const QRegularExpression plain(QStringLiteral("[\\x{1}-\\x{7f}]+"));
    QByteArray longest;
    for (const QString& part : folded.split(QRegularExpression(QStringLiteral("[*?]")))) {
        for (auto run = plain.globalMatch(part); run.hasNext();) {
            const QByteArray candidate = run.next().captured().toLatin1();
            if (candidate.size() > longest.size()) longest = candidate;
        }
    }
    return longest;
}

// The run is in lower case already.
bool Contains(QByteArrayView text, const QByteArray& run)
{
    const char low = run.front();
    const char high = low >= 'a' && low <= 'z' ? static_cast<char>(low - ('a' - 'A')) : low;
    const char* const end = text.end() - run.size() + 1;
    for (const char* at = text.begin(); at < end; ++at) {
        if (*at != low && *at != high) continue;
        if (std::equal(run.begin() + 1, run.end(), at + 1, [](char r, char t) { return r == Lower(t); })) return true;
    }
    return false;
}

// After a mismatch only the latest * has to take one character more, so the cost stays within text times pattern.
bool MatchesWildcards(QStringView text, QStringView pattern)
{
    qsizetype at = 0, in = 0, star = -1, resume = 0;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == u'*') {
            star = in++;
            resume = at;
        } else if (in < pattern.size() && (pattern[in] == u'?' || pattern[in] == text[at])) {
            ++in, ++at;
        } else if (star >= 0) {
            in = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return std::all_of(pattern.begin() + in, pattern.end(), [](QChar c) { return c == u'*'; });
}
} // namespace

void SetTextView(TextView view)
{
    g_textView = view ? view : PlainView;
}

Criterion ParseCriterion(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral(R"re(^\s*\[([^\]]+)\]\s+LIKE\s+(?:"((?:[^"]|"")*)"|'((?:[^']|'')*)')\s*$)re"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(text);
    if (!match.hasMatch())
        throw RunTimeError{engineerrors::UnparsableCriterion,
                           QStringLiteral("Syntax error in the search condition: %1").arg(text)};
    const QChar quote = match.capturedStart(2) >= 0 ? u'"' : u'\'';
    QString pattern = match.captured(quote == u'"' ? 2 : 3);
    return {match.captured(1), pattern.replace(QString(2, quote), QString(quote))};
}

LikePattern::LikePattern(const QString& pattern) : m_folded(pattern.toCaseFolded()), m_run(LongestAsciiRun(m_folded)) {}

bool LikePattern::Matches(QByteArrayView stored) const
{
    if (!m_run.isEmpty() && !Contains(stored, m_run)) return false;
    return MatchesWildcards(g_textView(stored.toByteArray()).toCaseFolded(), m_folded);
}
