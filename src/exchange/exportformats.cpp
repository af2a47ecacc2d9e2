#include "exchange/exportformats.h"

#include <algorithm>

namespace {
constexpr ExportFormat Formats[] = {
    {"ics", "iCalendar", false, WriteICalendar}, {"html", "Web page", false, WriteWebPage},
    {"md", "Markdown", true, WriteMarkdown},     {"txt", "Plain text", false, WritePlainText},
    {"rtf", "Rich text", false, WriteRichText},
};
} // namespace

std::span<const ExportFormat> ExportFormats()
{
    return Formats;
}

const ExportFormat* FormatNamed(const QString& name)
{
    const auto found = std::ranges::find_if(Formats, [&](const ExportFormat& format) {
        return name.compare(QLatin1StringView(format.name), Qt::CaseInsensitive) == 0;
    });
    return found == std::end(Formats) ? nullptr : found;
}
