#include "exchange/exportformats.h"

#include <algorithm>

namespace {
constexpr ExportFormat Formats[] = {
    {"ics", "&iCalendar, for other calendars", WriteICalendar},
    {"html", "Web &page, to read and print", WriteWebPage},
    {"md", "Mark&down", WriteMarkdown},
    {"txt", "Plain te&xt", WritePlainText},
    {"rtf", "&Rich text, for word processors", WriteRichText},
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
