// A session bus of the test's own, used by the program too. Construct it before the application object.
#pragma once

#include <QProcess>

class PrivateBus
{
public:
    // The bus starts services in this environment, and finds their files by its XDG_DATA_HOME.
    explicit PrivateBus(const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        m_daemon.setProcessEnvironment(environment);
        m_daemon.setStandardErrorFile(QProcess::nullDevice());
        m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        if (!m_daemon.waitForReadyRead()) qFatal("dbus-daemon did not start");
        const QByteArray address = m_daemon.readAllStandardOutput().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        m_address = QString::fromLatin1(address);
    }

    ~PrivateBus()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    QString Address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
};
