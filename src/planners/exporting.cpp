#include "planners/exporting.h"

#include "exchange/exportfile.h"
#include "hall/cells.h"
#include "hall/foot.h"
#include "planners/exportform.h"
#include "planners/opening.h"
#include "planners/savedcells.h"
#include "platform/desktop/windowplace.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/modshow.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "state/viewmode.h"

#include <QFileDialog>

namespace {
constexpr QLatin1StringView Literal(" in MainForm, mnuExport_Click");

QString Title()
{
    return QFileInfo(g_sNotesFile).completeBaseName();
}

// Empty after a Cancel. The dialog asks before an existing file is replaced.
QString AskForFile(const ExportFormat& format)
{
    const QString suffix = QString::fromLatin1(format.name);
    QFileDialog dialog(OwnerOfDialog(), u"Export"_s);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"%1 (*.%2)"_s.arg(QString::fromLatin1(format.kind).remove(u'&').section(u',', 0, 0), suffix));
    dialog.setDefaultSuffix(suffix);
    dialog.setDirectory(QFileInfo(g_sNotesFile).path());
    dialog.selectFile(Title() + u'.' + suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
} // namespace

DaySpan Exporting::ShownDays() const
{
    std::vector<GridDay> days;
    for (const QVariant& key : m_cells.Keys(CellsOf(m_viewMode.GetViewMode())))
        if (const auto day = DayOfKey(key.toString())) days.push_back(*day);
    if (days.empty()) return {};
    const auto [first, last] = std::ranges::minmax(days);
    return {first, last};
}

QString Exporting::NameOfShown() const
{
    const QLatin1StringView view = m_viewMode.GetViewMode() == ViewMode::Week ? "week"_L1 : "month"_L1;
    return u"The &shown %1"_s.arg(view);
}

void Exporting::mnuExport_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    ExportForm form(OwnerOfDialog(), ShownDays(), NameOfShown());
    if (form.exec() == QDialog::Accepted && SaveCellsBefore("export", m_notes, m_lockedDay))
        Export(form.Format(), [&form] { return ExtractFrom(g_dbPlanner, Title(), form.Span()); });
}

void Exporting::ExportDays(const QStringList& keys, const QString& name)
{
    ExportForm form(OwnerOfDialog(), name);
    if (form.exec() == QDialog::Accepted && SaveCellsBefore("export", m_notes, m_lockedDay))
        Export(form.Format(), [&keys] { return ExtractDays(g_dbPlanner, Title(), keys); });
}

void Exporting::Export(const ExportFormat& format, const std::function<Extract()>& extract)
{
    const QString path = AskForFile(format);
    if (path.isEmpty()) return;
    const auto failure = FailureOf(u"Export"_s, [&] { WriteExport(extract(), format, path); });
    if (!failure) return m_foot.SayBeside(u"The export is in "_s + path);
    if (failure->Number == engineerrors::Cancelled) return;
    LogError(*failure, Literal);
    messages::Tell(u"The export could not be made."_s, msgbox::Exclamation, failure->Description);
}
