#include "testmain.h"

#include <cstdio>
#include <map>

namespace {
std::map<QByteArray, Runnable::Main>& Runnables()
{
    static std::map<QByteArray, Runnable::Main> runnables;
    return runnables;
}
} // namespace

Runnable::Runnable(const char* name, Main main)
{
    Runnables()[QByteArray(name).toLower()] = main;
}

int Runnable::Run(int argc, char** argv)
{
    const auto found = Runnables().find(QByteArray(argc > 1 ? argv[1] : "").toLower());
    if (found != Runnables().end()) {
        argv[1] = argv[0];
        return found->second(argc - 1, argv + 1);
    }
    std::fputs("Please name what to run, one of:\n", stderr);
    for (const auto& [name, main] : Runnables())
        std::fprintf(stderr, "    %s\n", name.constData());
    return 2;
}

int main(int argc, char** argv)
{
    return Runnable::Run(argc, argv);
}
