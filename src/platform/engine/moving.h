// Moves a planner from a file to a server and back: all rows of all tables, or nothing. Meaning and errors as in
// DBEngine and Database.
#pragma once

#include <QString>

class PlannerAddress;
class Store;

namespace moving {
void ToServer(const QString& path, const PlannerAddress& address, const QByteArray& link);
void ToFile(Store& from, const QString& path);
} // namespace moving
