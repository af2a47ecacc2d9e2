#include "platform/engine/jet/jetreader.h"

#include "platform/desktop/folders.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>
#include <QProcessEnvironment>

namespace {
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds Patience = 20s;
constexpr std::chrono::milliseconds Longest = 10min;
std::chrono::milliseconds g_patience = Patience;

// Every byte of a sound file is told once, with at most so many around it: five before each value, which takes more
// than one of the file.
constexpr qint64 BytesPerByte = 4;
constexpr qint64 BytesOfDefinitions = 1 << 20;
} // namespace

JetReader::JetReader(const QString& path, const QStringList& tables)
{
    const QFileInfo file(path);
    QProcessEnvironment environment; // of ours it gets nothing
    environment.insert(u"LC_ALL"_s, u"C"_s);
    m_process.setProcessEnvironment(environment);
    m_process.setStandardInputFile(path);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(folders::ShippedProgram(u"orrelin-readjet"_s), tables);
    if (!m_process.waitForStarted())
        throw RunTimeError{engineerrors::NotADatabase,
                           u"The part of Orrelin that reads older planners is not installed."_s};
    m_frames.emplace(m_process, file.fileName(),
                     JetFrames::Limits{BytesOfDefinitions + BytesPerByte * file.size(), g_patience, Longest});
}

JetReader::~JetReader()
{
    m_process.kill();
    m_process.waitForFinished();
}

void JetReader::SetPatienceForTests(std::chrono::milliseconds patience)
{
    g_patience = patience.count() > 0 ? patience : Patience;
}
