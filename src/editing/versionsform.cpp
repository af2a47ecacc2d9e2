#include "editing/versionsform.h"

#include "platform/controls/notesheets.h"
#include "platform/controls/okcancel.h"
#include "platform/controls/softtext.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/twips.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"
#include "state/dateorder.h"

#include <QSet>
#include <QTextBlock>

namespace {
QString Shown(const DayVersion& version)
{
    const QDate day = version.when.date();
    const QString date = LocalDateOrder().BoxText(day.year(), day.month(), day.day());
    const QTime time = version.when.time();
    return date + (time == QTime(0, 0) ? QString() : time.toString(u"  HH:mm"_s)) + u'\n' + version.from;
}

// Marks the lines of a note that the other one has not.
void MarkLinesBeside(RichTextBox& box, const RichTextBox& other)
{
    QSet<QString> lines;
    for (QTextBlock block = other.document()->begin(); block.isValid(); block = block.next())
        lines += block.text();
    QList<QTextEdit::ExtraSelection> marks;
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
        if (lines.contains(block.text())) continue;
        QTextEdit::ExtraSelection& mark = marks.emplaceBack();
        mark.cursor = QTextCursor(block);
        mark.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        mark.format.setBackground(paper::PaleSelection);
    }
    box.setExtraSelections(marks);
}
} // namespace

VersionsForm::VersionsForm(QWidget* owner, const QString& day, const QByteArray& present, DayVersions versions)
    : QDialog(owner), m_versions(std::move(versions))
{
    setObjectName(u"VersionsForm"_s);
    setWindowTitle(u"Earlier Versions"_s);
    FillList();
    const int width = ToPixels(Read(settings::VersionsWidth));
    QSplitter* sheets = MakeSheets(
        *m_lstVersions, u"Versions of %1:"_s.arg(day), width,
        {MakeSheet(u"At that time:"_s, "tbVersion", m_tbVersion), MakeSheet(u"Now:"_s, "tbPresent", m_tbPresent)});
    m_tbPresent->SetTextRTF(present);
    auto* column = DialogColumn(*this, QLayout::SetDefaultConstraint);
    column->addWidget(sheets, 1);
    column->addWidget(MakeFoot());
    connect(m_lstVersions, &QListWidget::currentRowChanged, this,
            Guarded(" in VersionsForm, lstVersions_Click"_L1, [this](int row) { ShowVersion(row); }));
    connect(m_lstVersions, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    m_lstVersions->setCurrentRow(0);
    m_lstVersions->setFocus();
    ShowAtKeptSize();
}

void VersionsForm::FillList()
{
    m_lstVersions = Named(new QListWidget, "lstVersions");
    m_lstVersions->setAccessibleName(u"Versions"_s);
    m_lstVersions->setSpacing(2);
    m_lstVersions->setWordWrap(true); // the name of a person may be long
    for (const DayVersion& version : m_versions.found)
        m_lstVersions->addItem(Shown(version));
}

QWidget* VersionsForm::MakeFoot()
{
    auto* foot = new QWidget;
    auto* layout = new QVBoxLayout(foot);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2 * Rhythm);
    QLabel* hint = MakeWrappedText(m_versions.remarks.join(u'\n'));
    SoftenText(*Named(hint, "lblHint"));
    layout->addWidget(hint);
    QDialogButtonBox* buttons = MakeButtonBox(*this);
    QPushButton* putBack = buttons->addButton(u"&Put Back"_s, QDialogButtonBox::AcceptRole);
    Named(putBack, "btnOk")->setDefault(true);
    Named(buttons->addButton(u"&Cancel"_s, QDialogButtonBox::RejectRole), "btnCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    return foot;
}

void VersionsForm::ShowAtKeptSize()
{
    CenterOnScreen(*this);
    const QRect free = screen()->availableGeometry();
    const QSize kept(ToPixels(Read(settings::VersionsWidth)), ToPixels(Read(settings::VersionsHeight)));
    resize(kept.boundedTo(free.size()).expandedTo(minimumSizeHint()));
    move(free.center() - rect().center());
}

void VersionsForm::ShowVersion(int row)
{
    m_tbVersion->SetTextRTF(m_versions.found.at(std::size_t(qMax(0, row))).rtf);
    MarkLinesBeside(*m_tbVersion, *m_tbPresent);
    MarkLinesBeside(*m_tbPresent, *m_tbVersion);
}

const QByteArray& VersionsForm::Chosen() const
{
    return m_versions.found.at(std::size_t(qMax(0, m_lstVersions->currentRow()))).rtf;
}

void VersionsForm::done(int result)
{
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    Write(settings::VersionsWidth, ToTwips(width()));
    Write(settings::VersionsHeight, ToTwips(height()));
    QDialog::done(result);
}
