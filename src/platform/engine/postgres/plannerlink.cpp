#include "platform/engine/postgres/plannerlink.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/postgres/postgresstore.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>
#include <QList>

namespace {
using namespace engineerrors;

constexpr QByteArrayView Magic = "Orrelin planner link ";
constexpr QByteArrayView Version = "1";
constexpr qsizetype SizeLimit = 2048;

[[noreturn]] void Refuse(const QString& path, const QString& why)
{
    throw RunTimeError{NotADatabase, u"'%1' cannot be opened. %2"_s.arg(QFileInfo(path).fileName(), why)};
}
} // namespace

namespace plannerlink {
bool IsLink(QByteArrayView head)
{
    return head.startsWith(Magic);
}

PlannerAddress Read(const QString& path)
{
    const QByteArray text = wholefiles::Head(path, SizeLimit + 1);
    if (text.size() > SizeLimit) Refuse(path, u"It is too long for a link to a planner."_s);
    QByteArrayList lines = text.split('\n');
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    if (lines.isEmpty() || !IsLink(lines[0])) Refuse(path, u"It is no link to a planner."_s);
    if (lines[0].mid(Magic.size()).trimmed() != Version)
        Refuse(path, u"It was written by a newer Orrelin. Please update this one to open it."_s);
    if (lines.size() != 2) Refuse(path, u"A link to a planner has two lines, and the second one is its address."_s);
    try {
        return PlannerAddress(QString::fromUtf8(lines[1].trimmed()));
    } catch (const RunTimeError& error) {
        Refuse(path, error.Description);
    }
}

QByteArray Text(const PlannerAddress& address)
{
    const QByteArray text = Magic.toByteArray() + Version.toByteArray() + '\n' + address.Uri().toUtf8() + '\n';
    if (text.size() > SizeLimit)
        throw RunTimeError{NotADatabase, u"The address of the planner is too long to be kept in a file."_s};
    return text;
}

std::shared_ptr<Store> Open(const QString& path, bool exclusive)
{
    return std::make_shared<PostgresStore>(Read(path), QFileInfo(path).fileName(), exclusive);
}

void Delete(const QString& path)
{
    if (!wholefiles::Unlink(path))
        throw RunTimeError{ReadOnlyFile, u"You have no permission to delete '%1'."_s.arg(QFileInfo(path).fileName())};
}
} // namespace plannerlink
