// A link: a small text file that names a planner on a server. docs/planner-file.md specifies it.
#pragma once

#include "platform/engine/postgres/planneraddress.h"

#include <QByteArrayView>

#include <memory>

class Store;

// Paths as given to DBEngine. Errors as its functions that call these.
namespace plannerlink {
inline constexpr const char16_t* Refusal =
    u"'%1' is a link to a planner on a server, which keeps it compact and sound by itself.";

bool IsLink(QByteArrayView head);
PlannerAddress Read(const QString& path);       // NotADatabase
QByteArray Text(const PlannerAddress& address); // NotADatabase if Read would refuse it
std::shared_ptr<Store> Open(const QString& path, bool exclusive);
void Delete(const QString& path); // only the link: the planner on the server stays
} // namespace plannerlink
