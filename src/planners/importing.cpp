#include "planners/importing.h"

#include "alarms/tunes.h"
#include "editing/defaultfont.h"
#include "exchange/importfile.h"
#include "exchange/merging.h"
#include "hall/foot.h"
#include "notes/qmtdb.h"
#include "plannerfile/backups.h"
#include "planners/importform.h"
#include "planners/opening.h"
#include "planners/savedcells.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/windowplace.h"
#include "platform/engine/engineerrors.h"
#include "platform/richtext/richtextbox.h"
#include "platform/richtext/rtfformat.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/modshow.h"
#include "state/plannerstate.h"
#include "state/refusals.h"

#include <QFileDialog>

namespace {
const QString ImportTitle = u"Import"_s;
constexpr QLatin1StringView ImportLiteral(" in MainForm, mnuImport_Click");

QString AskForImport()
{
    QFileDialog dialog(OwnerOfDialog(), ImportTitle);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({ImportFilter(), u"All files (*)"_s});
    dialog.setDirectory(QFileInfo(g_sNotesFile).path());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

// As typed into an empty cell.
QTextCharFormat FormOfTypedText()
{
    RichTextBox cell;
    GiveDefaultFont(cell, DefaultStyles::AsSet, ImportLiteral);
    QTextCharFormat form = FormatOf(cell.Font());
    form.merge(ColorFormat(fnColorInHex(Read(settings::DefaultFontColor).toUpper())));
    return form;
}

// False after a message, or a Cancel.
bool Succeeds(const QString& problem, const std::function<void()>& work)
{
    const auto failure = FailureOf(ImportTitle, work);
    if (!failure) return true;
    if (failure->Number == engineerrors::Cancelled) return false;
    LogError(*failure, ImportLiteral);
    messages::Tell(problem, msgbox::Exclamation, failure->Description);
    return false;
}

bool BacksUp()
{
    const QString trouble = BackUpBeforeImport();
    return trouble.isEmpty() ||
           MsgBox(u"The planner could not be copied before the import.\n\nImport without a copy?"_s,
                  msgbox::YesNo + msgbox::Question, messages::HelpWizard, trouble) == msgbox::Yes;
}

QString InWords(const QStringList& keys)
{
    constexpr qsizetype MostDays = 10;
    QStringList days;
    for (const QString& key : keys.first(std::min(MostDays, keys.size())))
        days += fnFormatDateKey(key);
    return days.join(u"; "_s) + (keys.size() > MostDays ? u", ..."_s : QString());
}
} // namespace

void Importing::mnuImport_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    if (const QString path = AskForImport(); !path.isEmpty()) Import(path);
}

void Importing::Import(const QString& path)
{
    constexpr int UsualYears = 2;
    const QString name = QFileInfo(path).fileName();
    const QDate endlessUntil = desktopclock::Now().date().addYears(UsualYears);
    const QTextCharFormat form = FormOfTypedText();
    ImportedFile file;
    const auto read = [&](const QDate& until) {
        const auto job = [&] { file = ReadImport(path, {form, QTimeZone::systemTimeZone(), until, {}}); };
        return Succeeds(u"'%1' cannot be imported."_s.arg(name), job);
    };
    if (!read(endlessUntil)) return;
    if (!file.refusal.isEmpty())
        return messages::Tell(u"'%1' cannot be imported."_s.arg(name), msgbox::Exclamation, file.refusal);
    const auto readAgain = [&](const QDate& until) {
        return read(until) && file.refusal.isEmpty() ? std::optional(file) : std::nullopt;
    };
    ImportForm choice(OwnerOfDialog(), name, readAgain, endlessUntil, file, desktopclock::Now());
    if (choice.exec() != QDialog::Accepted) return;
    const std::vector<ImportedEntry> ticked = choice.Ticked();
    if (ticked.empty()) return;
    if (SaveCellsBefore("import", m_notes, m_lockedDay) && BacksUp()) Write(ticked);
}

void Importing::Write(const std::vector<ImportedEntry>& entries)
{
    MergeReport report;
    const bool isWritten = Succeeds(u"The import could not be written. The planner is as it was."_s, [&] {
        report = MergeInto(g_dbPlanner, entries, desktopclock::Now(), ListTunes().value(0));
    });
    m_notes.ReadDay({}); // also where a note is gone
    if (isWritten) Tell(report);
}

void Importing::Tell(const MergeReport& report)
{
    const QString over = report.over == 0 ? QString() : u", %1 over"_s.arg(report.over);
    m_foot.SayBeside(
        u"Import: %1 new, %2 changed, %3 already there"_s.arg(report.added).arg(report.changed).arg(report.present) +
        over);
    if (!report.refusedDays.isEmpty())
        messages::Tell(u"Some days could not be changed, because somebody else is editing them. Import the file again "
                       "for them later."_s,
                       msgbox::Exclamation, InWords(report.refusedDays));
}
