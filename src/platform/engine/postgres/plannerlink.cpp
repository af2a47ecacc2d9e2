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
    throw RunTimeError{NotADatabase, QStringLiteral("'%1' cannot be opened. %2").arg(QFileInfo(path).fileName(), why)};
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
    if (text.size() > SizeLimit) Refuse(path, QStringLiteral("It is too long for a link to a planner."));
    QByteArrayList lines = text.split('\n');
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    if (lines.isEmpty() || !IsLink(lines[0])) Refuse(path, QStringLiteral("It is no link to a planner."));
    if (lines[0].mid(Magic.size()).trimmed() != Version)
        Refuse(path, QStringLiteral("It was written by a newer Orrelin. Please update this one to open it."));
    if (lines.size() != 2)
        Refuse(path, QStringLiteral("A link to a planner has two lines, and the second one is its address."));
    try {
        return PlannerAddress(QString::fromUtf8(lines[1].trimmed()));
    } catch (const RunTimeError& error) {
        Refuse(path, error.Description);
    }
}

QString Address(const QString& path)
{
    return Read(path).Uri();
}

QByteArray Text(const PlannerAddress& address)
{
    const QByteArray text = Magic.toByteArray() + Version.toByteArray() + '\n' + address.Uri().toUtf8() + '\n';
    if (text.size() > SizeLimit)
        throw RunTimeError{NotADatabase,
                           QStringLiteral("The address of the planner is too long to be kept in a file.")};
    return text;
}

std::shared_ptr<Store> Open(const QString& path, bool exclusive)
{
    return std::make_shared<PostgresStore>(Read(path), QFileInfo(path).fileName(), exclusive);
}

void Delete(const QString& path)
{
    if (!wholefiles::Unlink(path))
        throw RunTimeError{ReadOnlyFile,
                           QStringLiteral("You have no permission to delete '%1'.").arg(QFileInfo(path).fileName())};
}
} // namespace plannerlink
