#include "platform/engine/like.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QRegularExpression>

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
