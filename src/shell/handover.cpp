#include "shell/handover.h"

#include "alarms/clockword.h"
#include "platform/profile/profile.h"
#include "settings/settings.h"
#include "shell/oneclock.h"
#include "state/plannerstate.h"
#include "state/workgroupstate.h"

#include <QCoreApplication>
#include <QFile>

#include <unistd.h>
#include <vector>

namespace {
const QString ShowWord = u"--show"_s;

QStringList WordsOf(const HandOver& handOver)
{
    return QStringList({handOver.minute, handOver.planner, handOver.isShared ? u"1"_s : u"0"_s}) + handOver.wanted;
}

std::optional<HandOver> Behind(const QString& word)
{
    const QStringList words = QCoreApplication::arguments();
    const qsizetype at = words.indexOf(word) + 1;
    if (at == 0) return {};
    return HandOver{words.value(at), words.value(at + 1), words.value(at + 2) == u'1', words.mid(at + 3)};
}
} // namespace

// The planner of a drive that is not there now is followed on.
HandOver HandOver::OfPlanner(const QString& minute)
{
    if (HasPlanner()) return {minute, g_sNotesFile, g_bDBShared, {}};
    return {minute, Read(settings::FollowedPlanner), Read(settings::FollowedShared) != 0, {}};
}

QStringList HandOver::ToClock() const
{
    return QStringList(ClockWord) + WordsOf(*this);
}

QStringList HandOver::ToCalendar() const
{
    return QStringList(ShowWord) + WordsOf(*this);
}

std::optional<HandOver> HandedToClock()
{
    auto handed = Behind(ClockWord);
    const bool isStartOfSession = handed && handed->minute.isEmpty() && handed->planner.isEmpty();
    if (!isStartOfSession) return handed;
    return HandOver::OfPlanner({});
}

std::optional<HandOver> HandedToCalendar()
{
    return Behind(ShowWord);
}

void TellClocks()
{
    const bool isWanted = Read(settings::RingInTray) != 0 && HasPlanner();
    oneclock::Hold(isWanted ? g_sNotesFile : QString());
    if (!isWanted) return;
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    Write(settings::FollowedPlanner, g_sNotesFile);
    Write(settings::FollowedShared, g_bDBShared ? 1 : 0);
}

void Replace(const QStringList& words)
{
    QList<QByteArray> bytes = {"orrelin"};
    for (const QString& word : words)
        bytes += QFile::encodeName(word);
    std::vector<char*> arguments;
    for (QByteArray& one : bytes)
        arguments.push_back(one.data());
    arguments.push_back(nullptr);
    // By its name, which process lists show. A program that was replaced by an update has only the other one.
    const QByteArray self = "/proc/self/exe";
    ::execv(QFile::encodeName(QFile::symLinkTarget(QFile::decodeName(self))).constData(), arguments.data());
    ::execv(self.constData(), arguments.data());
}
