// Runs a fuzz target without libFuzzer: every file of the corpus, each cut at every byte, then so many changed inputs.
// If an input fails, keeps it as a file.
//   NAME FOLDER [RUNS [SEED]]    words.txt in the folder holds the words of the language, one a line
//   NAME FILE                    runs this input alone
#include "files.h"
#include "fuzz/fuzztarget.h"
#include "fuzz/mutator.h"

#include <QDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace {

constexpr unsigned SecondsForInput = 20;
constexpr const char* FailedInput = "fuzz-input";
std::string g_input; // the current input, for the signal handlers

void KeepInput()
{
    std::ofstream(FailedInput, std::ios::binary) << g_input;
    std::fprintf(stderr, "The input is in %s.\n", std::filesystem::absolute(FailedInput).c_str());
}

// The process ends after the signal, so calling a routine that is unsafe in a handler does no harm.
void KeepInputAndDie(int number)
{
    KeepInput();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

void WatchOver()
{
    std::signal(SIGABRT, KeepInputAndDie);
    std::signal(SIGALRM, KeepInputAndDie);
    if (__sanitizer_set_death_callback) __sanitizer_set_death_callback(KeepInput);
}

void Try(std::string input)
{
    g_input = std::move(input);
    alarm(SecondsForInput);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(g_input.data()), g_input.size());
    alarm(0);
}

std::string ReadFile(const QString& path)
{
    return Content(path).toStdString();
}

// Sorted by name, since the folder's own order depends on the disk.
std::vector<std::string> ReadCorpus(const QDir& folder)
{
    std::vector<std::string> corpus;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name))
        if (file.suffix() != u"txt" && file.size() > 0) corpus.push_back(ReadFile(file.filePath()));
    return corpus;
}

std::vector<std::string> ReadWords(const QString& path)
{
    std::vector<std::string> words;
    for (const QByteArray& line : Content(path).split('\n'))
        if (!line.isEmpty()) words.push_back(line.toStdString());
    return words;
}

int TryFolder(const QDir& folder, long runs, std::uint32_t seed)
{
    const std::vector<std::string> corpus = ReadCorpus(folder);
    const std::vector<std::string> words = ReadWords(folder.filePath(u"words.txt"_s));
    if (corpus.empty() || words.empty()) {
        std::fprintf(stderr, "%s holds no corpus.\n", qPrintable(folder.path()));
        return 2;
    }
    for (const std::string& input : corpus)
        for (std::size_t length = 0; length <= input.size(); ++length)
            Try(input.substr(0, length));
    Mutator mutator(corpus, words, seed);
    for (long run = 0; run < runs; ++run)
        Try(mutator.Next());
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&count, &arguments);
    if (count < 2) {
        std::fprintf(stderr, "%s FOLDER [RUNS [SEED]] | FILE\n", arguments[0]);
        return 2;
    }
    WatchOver();
    const QString path = QFile::decodeName(arguments[1]);
    if (QFileInfo(path).isDir())
        return TryFolder(path, count > 2 ? std::atol(arguments[2]) : 0,
                         count > 3 ? static_cast<std::uint32_t>(std::atol(arguments[3])) : 1);
    Try(ReadFile(path));
    return 0;
}
