#include "platform/engine/likepattern.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/textview.h"
#include "platform/runtime/runtimeerror.h"

#include <algorithm>

namespace {
using Characters = std::u32string_view;

QString TextOf(Characters characters)
{
    return QString::fromUcs4(characters.data(), static_cast<qsizetype>(characters.size()));
}

[[noreturn]] void RaiseBroken(Characters pattern)
{
    throw RunTimeError{engineerrors::UnparsableCriterion,
                       u"Syntax error in the search pattern: %1"_s.arg(TextOf(pattern))};
}

QString FormOf(char32_t folded)
{
    return u"\\x{%1}"_s.arg(static_cast<uint>(folded), 0, 16);
}

QString FormOfList(Characters list)
{
    if (list.empty()) return {};
    const bool isNot = list.size() > 1 && list.front() == U'!';
    if (isNot) list.remove_prefix(1);
    QString form = isNot ? u"[^"_s : u"["_s;
    for (std::size_t at = 0; at < list.size(); ++at) {
        const bool isRange = at + 2 < list.size() && list[at + 1] == U'-';
        const char32_t from = FoldedCase(list[at]), to = isRange ? FoldedCase(list[at + 2]) : from;
        if (from > to) RaiseBroken(list);
        form += FormOf(from) + u'-' + FormOf(to);
        if (isRange) at += 2;
    }
    return form + u']';
}

bool IsWild(char32_t character)
{
    return Characters(U"*?#[").find(character) != Characters::npos;
}

std::size_t SizeOfItem(Characters rest, Characters pattern)
{
    if (rest.front() != U'[') return 1;
    const std::size_t end = rest.find(U']');
    if (end == Characters::npos) RaiseBroken(pattern);
    return end + 1;
}

QString FormOfItem(Characters item)
{
    switch (item.front()) {
    case U'?':
        return u"."_s;
    case U'#':
        return u"[0-9]"_s;
    case U'[':
        return FormOfList(item.substr(1, item.size() - 2));
    default:
        return FormOf(FoldedCase(item.front()));
    }
}

// Each piece between two * matches at its first fit and is not tried again, so the cost is at most text times pattern.
// Only the piece after the last * must reach the end.
QString FormOf(QStringList pieces)
{
    QString form = "\\A"_L1 + pieces.takeFirst();
    const QString last = pieces.isEmpty() ? QString() : ".*"_L1 + pieces.takeLast();
    for (const QString& piece : pieces)
        form += "(?>.*?"_L1 + piece + u')';
    return form + last + "\\z"_L1;
}

// Jumping from one place of the first letter to the next is much quicker than comparing at each. Bit 5 is the case of a
// letter. Of other characters it says too much here, which costs only the reading of a text.
bool MayContain(QByteArrayView text, const QByteArray& run)
{
    constexpr int CaseBit = 0x20;
    const auto isAlike = [](char a, char b) { return ((a ^ b) & ~CaseBit) == 0; };
    const QByteArrayView starts = text.chopped(std::min(run.size() - 1, text.size()));
    for (const char first : {run.front(), static_cast<char>(run.front() & ~CaseBit)})
        for (qsizetype at = -1; (at = starts.indexOf(first, at + 1)) >= 0;)
            if (std::equal(run.begin() + 1, run.end(), text.begin() + at + 1, isAlike)) return true;
    return false;
}
} // namespace

Criterion ParseCriterion(const QString& text)
{
    static const QRegularExpression form(
        uR"re(^\s*\[([^\]]+)\]\s+LIKE\s+(?:"((?:[^"]|"")*)"|'((?:[^']|'')*)')\s*$)re"_s,
        QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(text);
    if (!match.hasMatch())
        throw RunTimeError{engineerrors::UnparsableCriterion, u"Syntax error in the search condition: %1"_s.arg(text)};
    const QChar quote = match.capturedStart(2) >= 0 ? u'"' : u'\'';
    QString pattern = match.captured(quote == u'"' ? 2 : 3);
    return {match.captured(1), pattern.replace(QString(2, quote), QString(quote))};
}

LikePattern::LikePattern(const QString& pattern) : m_text(pattern)
{
    const std::u32string all = pattern.toStdU32String();
    QStringList pieces = {QString()}; // the pieces between the *
    QByteArray run;
    for (Characters rest = all; !rest.empty();) {
        const std::size_t size = SizeOfItem(rest, all);
        NoteCharacter(IsWild(rest.front()) ? 0 : FoldedCase(rest.front()), run);
        if (rest.front() == U'*')
            pieces += QString();
        else
            pieces.last() += FormOfItem(rest.substr(0, size));
        rest.remove_prefix(size);
    }
    m_form = QRegularExpression(FormOf(pieces), QRegularExpression::DotMatchesEverythingOption);
}

void LikePattern::NoteCharacter(char32_t folded, QByteArray& run)
{
    run = folded == 0 || folded >= 0x80 ? QByteArray() : run + static_cast<char>(folded);
    if (run.size() > m_run.size()) m_run = run;
    if (folded >= 0x80 && !m_sign) m_sign = folded;
}

bool LikePattern::Matches(QByteArrayView stored) const
{
    if (!m_run.isEmpty() && !MayContain(stored, m_run)) return false;
    if (m_sign && !MayHold(stored, m_sign)) return false;
    return m_form
        .match(FoldedCase(ViewedText(stored)), 0, QRegularExpression::NormalMatch,
               QRegularExpression::DontCheckSubjectStringMatchOption)
        .hasMatch();
}
