// During its life the person can end a long statement of the connection, if a window shows the work (longwork.h). The
// statement then fails as Cancelled.
#pragma once

#include "platform/engine/longwork.h"

#include <SQLiteCpp/Database.h>

#include <sqlite3.h>

class Endable
{
public:
    explicit Endable(SQLite::Database& database) : m_handle(database.getHandle())
    {
        constexpr int Steps = 1000; // well under a millisecond
        sqlite3_progress_handler(
            m_handle, Steps, [](void*) { return longwork::IsEnded() ? 1 : 0; }, nullptr);
    }
    ~Endable() { sqlite3_progress_handler(m_handle, 0, nullptr, nullptr); }
    Q_DISABLE_COPY_MOVE(Endable)

private:
    sqlite3* m_handle;
};
