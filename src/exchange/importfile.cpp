#include "exchange/importfile.h"

#include "exchange/readers.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>

#include <algorithm>

namespace {
constexpr struct
{
    const char* suffix;
    ImportedFile (*read)(const QByteArray& file, const ImportChoices& choices);
} Readers[] = {{"ics", ReadICalendar},     {"ical", ReadICalendar}, {"md", ReadMarkdown},
               {"markdown", ReadMarkdown}, {"txt", ReadPlainText},  {"text", ReadPlainText}};

// A calendar is known by its content, whatever its name, and may have a mail around it. A diary may quote one.
auto ReaderOf(const QByteArray& file, const QString& suffix)
{
    constexpr char CalendarBegins[] = "BEGIN:VCALENDAR";
    const auto found = std::ranges::find_if(Readers, [&](const auto& reader) {
        return suffix.compare(QLatin1StringView(reader.suffix), Qt::CaseInsensitive) == 0;
    });
    const bool isText = found != std::end(Readers) && found->read != ReadICalendar;
    const bool isCalendar = isText ? file.trimmed().startsWith(CalendarBegins) : file.contains(CalendarBegins);
    if (isCalendar) return ReadICalendar;
    return found == std::end(Readers) ? ReadPlainText : found->read;
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.readAll();
        if (file.error() == QFile::NoError) return bytes;
    }
    throw RunTimeError{engineerrors::InputOutput,
                       u"'%1' could not be read: %2"_s.arg(QFileInfo(path).fileName(), file.errorString())};
}
} // namespace

QString ImportFilter()
{
    QStringList patterns;
    for (const auto& reader : Readers)
        patterns += u"*."_s + QLatin1StringView(reader.suffix);
    return u"Calendars and texts (%1)"_s.arg(patterns.join(u' '));
}

ImportedFile ReadImport(const QString& path, ImportChoices choices)
{
    constexpr int MostMegabytes = 20; // some sixty thousand events
    const QFileInfo info(path);
    ImportedFile refused;
    if (info.exists() && !info.isFile()) refused.refusal = u"It is no file."_s;
    if (info.size() > MostMegabytes * 1024 * 1024)
        refused.refusal = u"It is larger than %1 MB, which no calendar is."_s.arg(MostMegabytes);
    if (!refused.refusal.isEmpty()) return refused;
    const QByteArray file = BytesOf(path);
    choices.folder = info.path();
    return ReaderOf(file, info.suffix())(file, choices);
}
