// The process that reads an old planner for us, from its start to its end.
#pragma once

#include "platform/engine/jet/jetframes.h"

#include <QProcess>

class JetReader
{
public:
    // Begins to read these tables; none that are missing come. 3343.
    JetReader(const QString& path, const QStringList& tables);
    ~JetReader(); // whatever it is doing then

    JetFrames& Frames() { return *m_frames; }

    // For tests, the time without a byte after which it is given up.
    static void SetPatienceForTests(std::chrono::milliseconds patience);

private:
    QProcess m_process;
    std::optional<JetFrames> m_frames;
};
