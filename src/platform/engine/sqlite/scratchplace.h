// The place where Compact makes its copy before the copy replaces the planner. One program at a time uses it. A copy
// left by a program that died is replaced. Any other file there belongs to somebody and is moved aside.
#pragma once

#include "platform/runtime/durablefile.h"

class ScratchPlace
{
public:
    // For a copy of the planner. InUse while another program uses the place or has the file there open; the text names
    // the whole path. FileExists if the planner itself is there.
    ScratchPlace(const QString& path, const QString& planner);
    // Deletes the copy. If the planner is gone, the copy may be all that is left, so it stays.
    ~ScratchPlace();
    ScratchPlace(const ScratchPlace&) = delete;
    ScratchPlace& operator=(const ScratchPlace&) = delete;

    const QString& Path() const { return m_path; }
    const QString& PutBeside() const
    {
        return m_beside;
    } // the new path of the file moved aside; empty if there was none

private:
    QString Lock() const { return m_path + ".lock"_L1; }
    void Take();
    void Clear();
    void PutAside();
    void MarkAsOurs(bool ours) const;

    QString m_path, m_planner, m_beside;
    std::unique_ptr<FileLock> m_lock;
};
