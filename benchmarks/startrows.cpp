#include "rows.h"

#include <QCoreApplication>
#include <QThread>

#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace {
QByteArray g_config, g_data; // environment lines of the started processes

std::vector<char*> Environment()
{
    std::vector<char*> lines;
    for (char** line = environ; *line; ++line) {
        const QByteArrayView text(*line);
        if (!text.startsWith("XDG_CONFIG_HOME=") && !text.startsWith("XDG_DATA_HOME=")) lines.push_back(*line);
    }
    lines.insert(lines.end(), {g_config.data(), g_data.data(), nullptr});
    return lines;
}

enum class Program
{
    Orrelin,
    Bare
};

// Runs the process to its end. False if it failed.
bool Start(Program program, std::vector<QByteArray> arguments, int output)
{
    const QByteArray name = program == Program::Orrelin ? "/orrelin-bench-start" : "/orrelin-bench-barestart";
    arguments.insert(arguments.begin(), QCoreApplication::applicationDirPath().toUtf8() + name);
    std::vector<char*> pointers;
    for (QByteArray& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (output >= 0) posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t process = 0;
    const int failure = posix_spawn(&process, pointers[0], &actions, nullptr, pointers.data(), Environment().data());
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failure == 0) ::waitpid(process, &status, 0);
    return failure == 0 && status == 0;
}

struct Memory
{
    double Resident = 0; // shared pages count in part
    double Peak = 0;
};

Memory MemoryOf(Program program)
{
    constexpr double KilobytesPerMegabyte = 1024;
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return {};
    const bool started = Start(program, {"--memory"}, ends[1]);
    ::close(ends[1]);
    FILE* told = ::fdopen(ends[0], "r");
    Memory memory;
    if (!started || std::fscanf(told, "%lf %lf", &memory.Resident, &memory.Peak) != 2) {
        std::fprintf(stderr, "a started process told nothing\n");
        std::exit(1);
    }
    std::fclose(told);
    return {memory.Resident / KilobytesPerMegabyte, memory.Peak / KilobytesPerMegabyte};
}

// Lets the last process's window leave the screen.
void Settle()
{
    constexpr unsigned long ForTheServer = 30;
    QThread::msleep(ForTheServer);
    PaintNow();
}

Side StartOf(Program program)
{
    static bool ended = false;
    return {[program] { ended = Start(program, {}, -1); }, Settle, [] { return ended; }};
}
} // namespace

void AddStartRows(const TakeRow& add, const AddMemory& addMemory, const Home& home)
{
    constexpr int Starts = 20, Looks = 5;
    g_config = "XDG_CONFIG_HOME=" + home.Config().toUtf8();
    g_data = "XDG_DATA_HOME=" + home.Data().toUtf8();
    add({"start to the painted month", StartOf(Program::Orrelin), StartOf(Program::Bare), {Starts}});
    addMemory({"memory after the start", [] { return MemoryOf(Program::Orrelin).Resident; },
               [] { return MemoryOf(Program::Bare).Resident; }, Looks});
    addMemory({"memory at most", [] { return MemoryOf(Program::Orrelin).Peak; },
               [] { return MemoryOf(Program::Bare).Peak; }, Looks});
}
