// Prints one table: the program's actions beside the least that each can cost.
#include "rows.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

namespace {
struct Choice
{
    std::string Row;
    bool WithFloor = true;
    int Times = 1;
    int Years = UsualYears;
};

Choice ReadChoice()
{
    QCommandLineParser parser;
    parser.addPositionalArgument(u"row"_s, u"Run this row alone."_s, u"[row]"_s);
    const QCommandLineOption ours(u"ours"_s, u"Leave the floors out, for a profiler."_s);
    const QCommandLineOption times(u"times"_s, u"So many times the turns."_s, u"number"_s, u"1"_s);
    const QCommandLineOption years(u"years"_s, u"So large a planner, for its growth."_s, u"number"_s,
                                   QString::number(UsualYears));
    parser.addOptions({ours, times, years});
    parser.addHelpOption();
    parser.process(*qApp);
    return {parser.positionalArguments().value(0).toStdString(), !parser.isSet(ours),
            qMax(1, parser.value(times).toInt()), qMax(1, parser.value(years).toInt())};
}

// The benchmark library appends the repetitions after a slash.
std::string Filter(const std::string& row)
{
    return row.empty() ? std::string(".") : "^" + row + "( floor)?/";
}

int Print(const Choice& choice, const std::vector<std::string>& names)
{
    std::string name = "bench", interleave = "--benchmark_enable_random_interleaving=true";
    std::array<char*, 3> arguments{name.data(), interleave.data(), nullptr};
    int count = 2;
    benchmark::Initialize(&count, arguments.data());
    PairReporter reporter(names);
    const std::size_t rows = benchmark::RunSpecifiedBenchmarks(&reporter, Filter(choice.Row));
    benchmark::Shutdown();
    return rows == 0 || reporter.Failed() ? 1 : 0;
}

int Measure(const Choice& choice, const QTemporaryDir& folder)
{
    const QString planner = folder.filePath(u"planner.mdb"_s);
    const Home shown{folder.filePath(u"shown"_s)};
    const Home started{folder.filePath(u"started"_s)};
    // Before any folder is asked for, so that nobody's own settings are read or written.
    UseHome(shown);
    WritePlanner(planner, choice.Years);
    Furnish(shown, planner);
    Furnish(started, planner);
    PlannerWindow ours;
    BarePlanner bare(planner);
    std::vector<std::string> names;
    const TakeRow add = [&](Row row) {
        names.push_back(row.Name);
        row.Count.Repetitions *= choice.Times;
        AddRow(row, choice.WithFloor);
    };
    const AddMemory addMemory = [&](const MemoryRow& row) {
        names.push_back(row.Name);
        AddRow(row, choice.WithFloor);
    };
    AddStartRows(add, addMemory, started);
    AddMonthRows(add, ours, bare);
    AddLongNoteRows(add, ours);
    AddTextRows(add);
    AddDayViewRows(add);
    AddSpellingRows(add);
    AddFindRows(add, planner);
    AddWallpaperRows(add, ours, planner);
    AddPrintRow(add, ours);
    AddVersionRow(add);
    AddWorkgroupRows(add, addMemory, planner);
    AddEventRows(add);
    AddExchangeRows(add, planner);
    AddAlarmRows(add, ours.Box(1));
    const int failed = Print(choice, names);
    const double megabytes = double(QFileInfo(planner).size()) / 1e6;
    std::printf("\nThe planner: %d years, %d notes, %.1f MB\n", choice.Years, choice.Years * 12 * BoxCount, megabytes);
    return failed;
}
} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const Choice choice = ReadChoice();
    const QTemporaryDir folder;
    return folder.isValid() ? Measure(choice, folder) : 1;
}
