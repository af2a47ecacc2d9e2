// Who is told of what other users commit.
#pragma once

#include <QString>
#include <QVariant>

#include <functional>

// What another user has committed: the table, and the record's key in the table's first index. No key: any record of
// the table. No table: anything, as after a break of the connection.
using ChangeListener = std::function<void(const QString& table, const QVariant& key)>;
