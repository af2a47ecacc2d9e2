// A planner file that is a link: a small text that names a planner on a server. docs/planner-file.md specifies it.
#pragma once

#include "platform/engine/postgres/planneraddress.h"

#include <QByteArrayView>

#include <memory>

class Store;

// Paths as a caller has them. Errors as the functions of DBEngine that use them.
namespace plannerlink {
inline constexpr const char16_t* Refusal =
    u"'%1' is a link to a planner on a server, which keeps it compact and sound by itself.";

bool IsLink(QByteArrayView head);
PlannerAddress Read(const QString& path);       // NotADatabase
QByteArray Text(const PlannerAddress& address); // NotADatabase for one that Read would not take
std::shared_ptr<Store> Open(const QString& path, bool exclusive);
void Delete(const QString& path); // the link alone: the planner on the server stays
} // namespace plannerlink
