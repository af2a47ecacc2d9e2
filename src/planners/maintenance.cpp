#include "planners/maintenance.h"

#include "notes/qmtdb.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "planners/opening.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/dbengine.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/longwork.h"
#include "platform/engine/sqlite/scratchplace.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/lockedday.h"
#include "state/plannerstate.h"

#include <QFileInfo>

namespace {
constexpr double Copying = 0.75; // the share of Compact before the copy replaces the planner

QString WordFor(const QString& table)
{
    if (table == schema::Notes) return u"Notes"_s;
    if (table == schema::Alarms) return u"Alarms"_s;
    return table == schema::Recursions ? u"Recurring events"_s : table;
}

QString ScratchPath()
{
    return folders::ApplicationDirectory() + u"/dummy.mdb"_s;
}

// Another program has moved or deleted the planner during Compact.
QString WhatIsLeft(const QString& file)
{
    const bool isGone = !file.isEmpty() && !QFileInfo::exists(file);
    if (!isGone || !QFileInfo::exists(ScratchPath())) return {};
    return u"The planner is not in its place any more. What Compact has made of it is\n%1"_s.arg(ScratchPath());
}

QString DescribeBeside(const ScratchPlace& scratch)
{
    if (scratch.PutBeside().isEmpty()) return {};
    return u"\n\nWhat lay at %1, where Compact makes its copies, is now\n%2"_s.arg(scratch.Path(), scratch.PutBeside());
}

bool IsOpenPlanner(const QString& file)
{
    return HasPlanner() && g_dbPlanner.ServerAddress().isEmpty() &&
           QFileInfo(file).canonicalFilePath() == QFileInfo(g_sNotesFile).canonicalFilePath();
}

QString DescribeKept(const QString& oldPlanner, const QStringList& missing)
{
    if (oldPlanner.isEmpty()) return {};
    QString text =
        u"The planner was of an older kind and has been converted. The old one is kept beside it as %1."_s.arg(
            QFileInfo(oldPlanner).fileName());
    if (!missing.isEmpty()) text += u'\n';
    for (const QString& table : missing)
        text += u"\n%1: it had no table for them"_s.arg(WordFor(table));
    return text;
}

QString Describe(const DBEngine::RepairReport& report)
{
    const QString backups = u"\n\n"_s + PlaceOfBackups();
    if (report.KeptAs.isEmpty()) return u"Nothing was wrong with it."_s + backups;
    QString text = u"The damaged planner is kept beside it as %1.\n"_s.arg(QFileInfo(report.KeptAs).fileName());
    for (const auto& table : report.Tables) {
        text += u"\n%1: %2 recovered"_s.arg(WordFor(table.Name)).arg(table.Rows);
        if (table.CutRows > 0) text += u", of which %1 lost a part"_s.arg(table.CutRows);
    }
    return text + backups;
}
} // namespace

// The title and CancelError are left from the dialog's last use, so after New or Open a cancel is an error that is
// shown.
bool Maintenance::ChooseFile(const char* filter)
{
    m_dialog.Filter = QString::fromLatin1(filter);
    m_dialog.Flags = CommonDialog::FileMustExist;
    m_dialog.FilterIndex = 1;
    m_dialog.AcceptText.clear();
    return m_dialog.Action(1) && !m_dialog.FileName.isEmpty();
}

void Maintenance::Run(const Command& command, const Work& work)
{
    QString file;
    try {
        if (!ChooseFile(command.filter)) return;
        file = m_dialog.FileName;
        // After a failed opening the former planner's tables are still open, though it is no longer shown.
        if (!HasPlanner()) AdoptPlanner({}, {}, {});
        const bool isOpen = IsOpenPlanner(file);
        if (isOpen && !MayClose(file, command)) return;
        if (isOpen) m_notes.subUpdateQMTDatabase();
        QString more;
        const auto job = [&] { more = work(file); };
        const QString name = QString::fromLatin1(command.name);
        if (const auto failure = isOpen ? m_opening.Reopen(name, job) : FailureOf(name, job)) throw *failure;
        MsgBox(QString::fromLatin1(command.done), msgbox::Information, name, more);
    } catch (const RunTimeError& failure) {
        if (failure.Number == engineerrors::Cancelled) return;
        const RunTimeError error = DBEngine::Explained(failure, file, schema::AllTables());
        MsgBox(QString::fromLatin1(command.failed) + error.Description, msgbox::Critical, u"Error"_s,
               command.afterError(file));
        LogError(error, command.literal);
    }
}

bool Maintenance::MayClose(const QString& file, const Command& command)
{
    const QString question = u"'%1' is the planner that is open. Orrelin saves and closes it for this, and "
                             "opens it again afterwards.\n\n%2 it now?"_s;
    return MsgBox(question.arg(QFileInfo(file).fileName(), QString::fromLatin1(command.name)),
                  msgbox::YesNo + msgbox::Question, messages::HelpWizard) == msgbox::Yes &&
           m_lockedDay.Commit();
}

void Maintenance::mnuCompact_Click()
{
    static constexpr Command compact = {"Compact",
                                        "Access (*.MDB)|*.mdb",
                                        " in MainForm, mnuCompact_Click"_L1,
                                        "Unable to compress database: ",
                                        "Database compressed OK",
                                        WhatIsLeft};
    Run(compact, [](const QString& file) {
        const DBEngine::AloneWith alone(file);
        const ScratchPlace scratch(ScratchPath(), file);
        QStringList missing;
        {
            const longwork::Part part(0, Copying);
            missing = DBEngine::CompactDatabase(file, scratch.Path(), schema::AllTables());
        }
        const longwork::Part part(Copying, 1);
        const QString old = DBEngine::ReplaceDatabase(scratch.Path(), file);
        return (DescribeKept(old, missing) + DescribeBeside(scratch)).trimmed();
    });
}

void Maintenance::mnuRepair_Click()
{
    static constexpr Command repair = {"Repair",
                                       "Access (*.mdb)|*.mdb",
                                       " in MainForm, mnuRepair_Click"_L1,
                                       "Error when repairing database: ",
                                       "Database repaired successfully",
                                       [](const QString&) { return PlaceOfBackups(); }};
    Run(repair, [](const QString& file) { return Describe(DBEngine::RepairDatabase(file, schema::AllTables())); });
}
