// SIGTERM, SIGINT and SIGHUP as an event of the program: a signal handler may only write to a pipe.
#pragma once

#include <QObject>

class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent); // one at a time
    ~TerminationSignals() override;

Q_SIGNALS:
    void Received();
};
