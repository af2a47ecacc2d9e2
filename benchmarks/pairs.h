// A row of the table: the program beside its floor. Both run in turns, in random order, so that other load affects both
// alike.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

struct Side
{
    std::function<void()> Act;
    std::function<void()> Prepare = [] {};            // before each step; not measured
    std::function<bool()> Done = [] { return true; }; // false: the step did not do its work
};

struct Turns
{
    int Repetitions; // the table shows their median
    int Steps = 1;   // per repetition
};

struct Row
{
    std::string Name;
    Side Ours;
    Side Floor;
    Turns Count;
    double Bytes = 0; // per step; if set, the table shows megabytes a second
};

void AddRow(const Row& row, bool withFloor);

struct MemoryRow
{
    std::string Name;
    std::function<double()> Ours;
    std::function<double()> Floor;
    int Repetitions;
};

void AddRow(const MemoryRow& row, bool withFloor);

// Prints one line per row after all have run.
class PairReporter : public benchmark::BenchmarkReporter
{
public:
    explicit PairReporter(std::vector<std::string> rows) : m_rows(std::move(rows)) {}
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;
    bool Failed() const { return m_failed; }

private:
    struct Result
    {
        std::vector<double> Costs; // seconds or megabytes
        double Bytes = 0;
        bool IsMemory = false;
    };
    static std::string Shown(const Result& result);
    void PrintLine(const std::string& name) const;

    std::vector<std::string> m_rows; // in table order
    std::map<std::string, Result> m_results;
    bool m_failed = false;
};
