// Shared by the engine's tests: a table as in planners, and a second program.
#pragma once

#include "errorof.h"
#include "platform/engine/dbengine.h"
#include "testmain.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSysInfo>
#include <QTextStream>

#include <pwd.h>
#include <unistd.h>

inline TableDef DayTable()
{
    return {u"QMT Table"_s,
            {{u"Database Date"_s, dbDate},
             {u"qmtDate"_s, dbText, 15},
             {u"qmtText"_s, dbMemo},
             {u"qmtFontSize"_s, dbSingle},
             {u"qmtFontBold"_s, dbBoolean},
             {u"qmtFontColor"_s, dbLong}},
            {{u"qmtPrimaryKey"_s, u"-qmtDate"_s, true}}};
}

inline Recordset Days(Database& database)
{
    Recordset days = database.OpenTable(u"QMT Table"_s);
    days.SetIndex(u"qmtPrimaryKey"_s);
    return days;
}

inline void Write(Recordset& days, const QString& key, const QByteArray& text)
{
    days.Seek(u"="_s, key);
    days.NoMatch() ? days.AddNew() : days.Edit();
    days.SetField(u"qmtDate"_s, key);
    days.SetField(u"qmtText"_s, text);
    days.Update();
}

// "absent" without such a record.
inline QByteArray Read(Recordset& days, const QString& key)
{
    days.Seek(u"="_s, key);
    return days.NoMatch() ? QByteArray("absent") : days.Fields(u"qmtText"_s).toByteArray();
}

// A second program. It answers each command line by one line, "0" or an error's number and text.
class OtherProgram
{
public:
    OtherProgram()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        StartAgain(m_process, u"OtherProgram"_s);
        m_process.waitForStarted();
    }
    ~OtherProgram()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    QString Do(const QStringList& command)
    {
        m_process.write(command.join(u'\t').toUtf8() + '\n');
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) {
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    QString Open(const QString& path, bool exclusive)
    {
        return Do({u"open"_s, path, exclusive ? u"exclusive"_s : u"shared"_s});
    }
    void Kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    // Its name in the engine's messages.
    static QString Name()
    {
        return u"user '%1' on machine '%2'."_s.arg(QString::fromLocal8Bit(::getpwuid(::geteuid())->pw_name),
                                                   QSysInfo::machineHostName());
    }

    // The main routine of the second program.
    static int Serve()
    {
        QTextStream in(stdin), out(stdout);
        Database database;
        Recordset days;
        for (QString line = in.readLine(); !line.isNull(); line = in.readLine()) {
            const QStringList words = line.split(u'\t');
            QString text;
            const int number = ErrorOf([&] { Obey(words, database, days); }, &text);
            out << number << ' ' << text << Qt::endl;
        }
        return 0;
    }

private:
    static void Obey(const QStringList& words, Database& database, Recordset& days)
    {
        const QString& verb = words[0];
        if (verb == u"open") database = DBEngine::OpenDatabase(words[1], words[2] == u"exclusive");
        if (verb == u"open") days = Days(database);
        if (verb == u"write") Write(days, words[1], words[2].toUtf8());
        if (verb == u"seek") days.Seek(u"="_s, words[1]);
        if (verb == u"edit") days.Edit();
    }

    QProcess m_process;
};

inline const Runnable runOtherProgram("OtherProgram", [](int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return OtherProgram::Serve();
});
