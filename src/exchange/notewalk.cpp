#include "exchange/notewalk.h"

namespace {
void AddTo(NoteLine& line, QChar character, const QString& form)
{
    const bool continues = !line.empty() && !line.back().picture.isImageFormat() && line.back().form == form;
    if (!continues) line.push_back({{}, form, {}});
    line.back().text += character;
}
} // namespace

std::vector<NoteLine> LinesOf(const QTextBlock& paragraph,
                              const std::function<QString(const QTextCharFormat& format)>& formOf)
{
    std::vector<NoteLine> lines(1);
    for (auto i = paragraph.begin(); !i.atEnd(); ++i) {
        const QTextCharFormat format = i.fragment().charFormat();
        const QString form = formOf(format), text = i.fragment().text();
        for (const QChar one : text) {
            if (one == QChar::LineSeparator)
                lines.emplace_back();
            else if (one != QChar::ObjectReplacementCharacter)
                AddTo(lines.back(), one, form);
            else if (format.isImageFormat())
                lines.back().push_back({{}, form, format});
        }
    }
    return lines;
}
