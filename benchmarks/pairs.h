// A row of the table: what the program does beside its floor. Both sides run in turns, in random order, so that what
// else happens on the machine meets both alike.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

struct Side
{
    std::function<void()> Act;
    std::function<void()> Prepare = [] {};            // before each step, not measured
    std::function<bool()> Done = [] { return true; }; // false: the step did not do what the row says
};

struct Turns
{
    int Repetitions; // the table shows their median
    int Steps = 1;   // in each
};

struct Row
{
    std::string Name;
    Side Ours;
    Side Floor;
    Turns Count;
    double Bytes = 0; // that a step works through; then the table shows megabytes a second
};

void AddRow(const Row& row, bool withFloor);

// Measures megabytes instead of time.
struct MemoryRow
{
    std::string Name;
    std::function<double()> Ours;
    std::function<double()> Floor;
    int Repetitions;
};

void AddRow(const MemoryRow& row, bool withFloor);

// Prints a line for each row when all have run.
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

    std::vector<std::string> m_rows; // in the order of the table
    std::map<std::string, Result> m_results;
    bool m_failed = false;
};
