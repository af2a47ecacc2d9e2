// Turns SIGTERM, SIGINT and SIGHUP into an event, since a signal handler may only write to a pipe. One instance at a
// time.
#pragma once

#include <QObject>

#include <functional>

class TerminationSignals : public QObject
{
public:
    TerminationSignals(QObject* parent, const std::function<void()>& received);
    ~TerminationSignals() override;
};
