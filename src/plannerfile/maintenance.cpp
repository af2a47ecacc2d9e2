#include "plannerfile/maintenance.h"

#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/dbengine.h"
#include "platform/runtime/errortail.h"

#include <QFileInfo>

namespace {
QString WordFor(const QString& table)
{
    if (table == schema::Notes) return QStringLiteral("Notes");
    if (table == schema::Alarms) return QStringLiteral("Alarms");
    return table == schema::Recursions ? QStringLiteral("Recurring events") : table;
}

QString DescribeKept(const QString& oldPlanner, const QStringList& missing)
{
    if (oldPlanner.isEmpty()) return {};
    QString text =
        QStringLiteral("The planner was of an older kind and has been converted. The old one is kept beside it as %1.")
            .arg(QFileInfo(oldPlanner).fileName());
    if (!missing.isEmpty()) text += u'\n';
    for (const QString& table : missing)
        text += QStringLiteral("\n%1: it had no table for them").arg(WordFor(table));
    return text;
}

QString Describe(const DBEngine::RepairReport& report)
{
    const QString backups = QStringLiteral("\n\n") + PlaceOfBackups();
    if (report.KeptAs.isEmpty()) return QStringLiteral("Nothing was wrong with it.") + backups;
    QString text =
        QStringLiteral("The damaged planner is kept beside it as %1.\n").arg(QFileInfo(report.KeptAs).fileName());
    for (const auto& table : report.Tables) {
        text += QStringLiteral("\n%1: %2 recovered").arg(WordFor(table.Name)).arg(table.Rows);
        if (table.CutRows > 0) text += QStringLiteral(", of which %1 lost a part").arg(table.CutRows);
    }
    return text + backups;
}
} // namespace

void Maintenance::Run(QLatin1StringView literal, const char* text, const std::function<void()>& work,
                      const QString& afterError)
{
    try {
        work();
    } catch (const RunTimeError& error) {
        MsgBox(QString::fromLatin1(text) + error.Description, msgbox::Critical, QStringLiteral("Error"), afterError);
        LogError(error, literal);
    }
}

// Title and CancelError are those of the dialog's last use: after New or Open a Cancel is an error that is shown.
bool Maintenance::ChooseFile(const char* filter)
{
    m_dialog.Filter = QString::fromLatin1(filter);
    m_dialog.Flags = CommonDialog::FileMustExist;
    m_dialog.FilterIndex = 1;
    m_dialog.AcceptText.clear();
    return m_dialog.Action(1) && !m_dialog.FileName.isEmpty();
}

void Maintenance::mnuCompact_Click()
{
    Run(QLatin1StringView(" in MainForm, mnuCompact_Click"), "Unable to compress database: ", [&] {
        if (!ChooseFile("Access (*.MDB)|*.mdb")) return;
        const QString file = m_dialog.FileName;
        const QString scratch = folders::ApplicationDirectory() + QStringLiteral("/dummy.mdb");
        QString kept;
        QStringList missing;
        {
            const Hourglass hourglass;
            const DBEngine::AloneWith alone(file);
            missing = DBEngine::CompactDatabase(file, scratch, schema::AllTables());
            kept = DBEngine::ReplaceDatabase(scratch, file);
        }
        MsgBox(QStringLiteral("Database compressed OK"), msgbox::Information, QStringLiteral("Compact"),
               DescribeKept(kept, missing));
    });
}

void Maintenance::mnuRepair_Click()
{
    const auto repair = [&] {
        if (!ChooseFile("Access (*.mdb)|*.mdb")) return;
        DBEngine::RepairReport report;
        {
            const Hourglass hourglass;
            report = DBEngine::RepairDatabase(m_dialog.FileName, schema::AllTables());
        }
        MsgBox(QStringLiteral("Database repaired successfully"), msgbox::Information, QStringLiteral("Repair"),
               Describe(report));
    };
    Run(QLatin1StringView(" in MainForm, mnuRepair_Click"), "Error when repairing database: ", repair,
        PlaceOfBackups());
}
