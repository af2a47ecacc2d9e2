// orrelin-export: the export of a planner without a window, for scripts and backups.
#include "exchange/exportfile.h"
#include "exchange/extraction.h"
#include "plannerfile/knownservers.h"
#include "platform/engine/dbengine.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QCommandLineParser>
#include <QDate>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace {
constexpr int Failed = 1, WrongUse = 2; // exit status

struct Request
{
    QString planner;
    const ExportFormat* format = nullptr;
    std::optional<DaySpan> span;
    QString file; // empty: standard output
};

struct UsageError
{
    QString text;
};

void Say(const QString& text)
{
    std::fputs(qPrintable(u"orrelin-export: %1\n"_s.arg(text)), stderr);
}

GridDay DayOf(const QString& text, const GridDay& fallback)
{
    if (text.isEmpty()) return fallback;
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (!date.isValid() || date.year() < 1) throw UsageError{u"'%1' is no date such as 1999-07-04"_s.arg(text)};
    return GridDayOf(date);
}

const ExportFormat* FormatFor(const QString& name, const QString& file)
{
    if (const ExportFormat* format = FormatNamed(name)) return format;
    if (!name.isEmpty()) throw UsageError{u"there is no format '%1'"_s.arg(name)};
    const ExportFormat* format = FormatNamed(file.isEmpty() ? u"ics"_s : QFileInfo(file).suffix());
    if (!format) throw UsageError{u"the name '%1' does not show the format; give --format"_s.arg(file)};
    return format;
}

QString NamesOfFormats()
{
    QStringList names;
    for (const ExportFormat& format : ExportFormats())
        names += QString::fromLatin1(format.name);
    return names.join(", "_L1);
}

Request RequestOf(const QCoreApplication& application)
{
    const QCommandLineOption format(
        u"format"_s, u"%1; by default as the suffix of FILE, else ics"_s.arg(NamesOfFormats()), u"FORMAT"_s);
    const QCommandLineOption from(u"from"_s, u"the first day, such as 1999-07-04"_s, u"DAY"_s);
    const QCommandLineOption to(u"to"_s, u"the last day"_s, u"DAY"_s);
    const QCommandLineOption output({u"o"_s, u"output"_s}, u"the file to write; by default the standard output"_s,
                                    u"FILE"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Writes the notes of an Orrelin planner in a form that other programs read."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(u"PLANNER"_s, u"the planner; it may be open elsewhere"_s);
    parser.addOptions({format, from, to, output});
    if (!parser.parse(application.arguments())) throw UsageError{parser.errorText()};
    if (parser.isSet(u"help"_s)) parser.showHelp();
    if (parser.isSet(u"version"_s)) parser.showVersion();
    if (parser.positionalArguments().size() != 1) throw UsageError{u"give one planner; --help tells more"_s};
    Request request{parser.positionalArguments().front(), nullptr, {}, parser.value(output)};
    request.format = FormatFor(parser.value(format), request.file);
    if (parser.isSet(from) || parser.isSet(to))
        request.span = DaySpan{DayOf(parser.value(from), {1, 1, 1}), DayOf(parser.value(to), {9999, 12, 31})};
    if (request.span && request.span->to < request.span->from) throw UsageError{u"the last day is before the first"_s};
    return request;
}

void Print(const QByteArray& content)
{
    const bool isOut =
        std::fwrite(content.constData(), 1, std::size_t(content.size()), stdout) == std::size_t(content.size()) &&
        std::fflush(stdout) == 0;
    if (!isOut) throw RunTimeError{engineerrors::InputOutput, u"the standard output could not be written"_s};
}

void Export(const Request& request)
{
    if (!LeadsToKnownServer(request.planner))
        throw RunTimeError{engineerrors::InvalidPath,
                           u"'%1' leads to a server that Orrelin has not been connected to before; open it in "
                           "Orrelin once"_s.arg(QFileInfo(request.planner).fileName())};
    const QTemporaryDir copies;
    if (!copies.isValid()) throw RunTimeError{engineerrors::InputOutput, copies.errorString()};
    const Database planner = DBEngine::OpenToRead(request.planner, copies.path());
    const Extract extract = ExtractFrom(planner, QFileInfo(request.planner).completeBaseName(), request.span);
    if (!request.file.isEmpty()) return WriteExport(extract, *request.format, request.file);
    Print(request.format->write(extract, [](const QByteArray&) { return QString(); }));
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // pictures and forms need QtGui, but no display
    // What the toolkit misses of a desktop, such as XDG_RUNTIME_DIR, does not matter here, and a script would mail it.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(u"orrelin"_s); // its folders
    QGuiApplication::setApplicationVersion(QStringLiteral(ORRELIN_VERSION));
    try {
        Export(RequestOf(application));
        return 0;
    } catch (const UsageError& error) {
        Say(error.text);
        return WrongUse;
    } catch (const RunTimeError& error) {
        Say(error.Description);
        return Failed;
    }
}
