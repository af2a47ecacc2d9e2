// The one place where Compact makes its copy before it is put into the planner's. One program at a time has it. What a
// run that died has left there is replaced; whatever else lies there is somebody's own and is put beside it.
#pragma once

#include "platform/runtime/durablefile.h"

class ScratchPlace
{
public:
    // For a copy of the planner. InUse while another program has the place, or has open what lies there; the text names
    // the whole path. FileExists for the planner that lies there itself.
    ScratchPlace(const QString& path, const QString& planner);
    // The copy goes. Where there is no planner any more it may be all that is left, and stays as somebody's own.
    ~ScratchPlace();
    ScratchPlace(const ScratchPlace&) = delete;
    ScratchPlace& operator=(const ScratchPlace&) = delete;

    const QString& Path() const { return m_path; }
    const QString& PutBeside() const { return m_beside; } // what lay there; empty if nothing did

private:
    QString Lock() const { return m_path + ".lock"_L1; }
    void Take();
    void Clear();
    void PutAside();
    void MarkAsOurs(bool ours) const;

    QString m_path, m_planner, m_beside;
    std::unique_ptr<FileLock> m_lock;
};
