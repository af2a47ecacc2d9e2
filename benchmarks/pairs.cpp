#include "pairs.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {
const std::string FloorMark = " floor";

double Seconds(const std::function<void()>& act)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    act();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void Run(benchmark::State& state, const Side& side, double bytes)
{
    for ([[maybe_unused]] auto step : state) {
        side.Prepare();
        state.SetIterationTime(Seconds(side.Act));
        if (side.Done()) continue;
        state.SkipWithError("the step did not do its work");
        break;
    }
    if (bytes > 0) state.counters["bytes"] = bytes;
}

void Register(const std::string& name, const Side& side, const Row& row)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [side, bytes = row.Bytes](benchmark::State& state) { Run(state, side, bytes); })
        ->Iterations(row.Count.Steps)
        ->Repetitions(row.Count.Repetitions)
        ->UseManualTime();
}

void Register(const std::string& name, const std::function<double()>& megabytes, int repetitions)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [megabytes](benchmark::State& state) {
                                     for ([[maybe_unused]] auto step : state)
                                         state.counters["megabytes"] = megabytes();
                                 })
        ->Iterations(1)
        ->Repetitions(repetitions);
}

double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::string Formatted(const char* format, double value)
{
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}
} // namespace

void AddRow(const Row& row, bool withFloor)
{
    Register(row.Name, row.Ours, row);
    if (withFloor) Register(row.Name + FloorMark, row.Floor, row);
}

void AddRow(const MemoryRow& row, bool withFloor)
{
    Register(row.Name, row.Ours, row.Repetitions);
    if (withFloor) Register(row.Name + FloorMark, row.Floor, row.Repetitions);
}

void PairReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) continue;
        const std::string name = run.run_name.function_name;
        if (run.error_occurred) {
            std::fprintf(stderr, "%s: %s\n", name.c_str(), run.error_message.c_str());
            m_failed = true;
            continue;
        }
        Result& result = m_results[name];
        const auto megabytes = run.counters.find("megabytes");
        const auto bytes = run.counters.find("bytes");
        result.IsMemory = megabytes != run.counters.end();
        if (bytes != run.counters.end()) result.Bytes = bytes->second;
        result.Costs.push_back(result.IsMemory ? double(megabytes->second)
                                               : run.real_accumulated_time / double(run.iterations));
    }
}

std::string PairReporter::Shown(const Result& result)
{
    constexpr double Million = 1e6, Thousand = 1e3;
    const double cost = Median(result.Costs);
    if (result.IsMemory) return Formatted("%.1f MB", cost);
    if (result.Bytes > 0) return Formatted("%.1f MB/s", result.Bytes / cost / Million);
    if (cost < 1 / Thousand) return Formatted("%.0f us", cost * Million);
    return Formatted(cost < 1 / Thousand * 100 ? "%.2f ms" : "%.0f ms", cost * Thousand);
}

void PairReporter::PrintLine(const std::string& name) const
{
    if (!m_results.contains(name)) return;
    const Result& ours = m_results.at(name);
    const auto floor = m_results.find(name + FloorMark);
    if (floor == m_results.end()) {
        std::printf("%-34s %12s\n", name.c_str(), Shown(ours).c_str());
        return;
    }
    std::printf("%-34s %12s %12s %8.2f\n", name.c_str(), Shown(ours).c_str(), Shown(floor->second).c_str(),
                Median(ours.Costs) / Median(floor->second.Costs));
}

// The ratio compares costs: 2 is twice the floor's time or memory, whatever unit is printed.
void PairReporter::Finalize()
{
    std::printf("%-34s %12s %12s %8s\n", "action", "ours", "floor", "ratio");
    for (const std::string& name : m_rows)
        PrintLine(name);
}
