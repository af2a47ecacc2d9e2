#include "workgroup/networkoptionform.h"

#include "hall/bars.h"
#include "planners/servermove.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/controls/timer.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/settings.h"
#include "state/workgroupstate.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr int Indent = 3 * Rhythm; // of what belongs to the box above

// Stores the delay as typed and applies it. If it is no number, the default is stored and the running delay stays.
void TakeDelay(const QString& typed, const IntSetting& setting, std::int32_t& seconds)
{
    bool isNumber = false;
    const double minutes = typed.trimmed().toDouble(&isNumber);
    if (!isNumber || !qIsFinite(minutes)) return WriteText(setting, u"5"_s);
    WriteText(setting, typed.trimmed());
    seconds = DelaySeconds(minutes);
}

// Stores and returns the new state.
bool TakeSwitch(const QCheckBox& box, const IntSetting& setting)
{
    WriteText(setting, box.isChecked() ? u"1"_s : u"0"_s);
    return box.isChecked();
}

QCheckBox* AddSwitch(QGridLayout& grid, int row, const char* name, const QString& caption, const IntSetting& setting)
{
    auto* box = Named(new QCheckBox(caption), name);
    box->setChecked(Read(setting) != 0);
    grid.addWidget(box, row, 0, 1, 3);
    return box;
}

// The labels of both parts have one width, so that their boxes stand below each other.
QLabel* MakeLabel(const QString& text, QLineEdit* box, int indent = 0)
{
    QLabel* label = LabelOf(text, box);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(u"Address:"_s) + Indent);
    label->setIndent(indent);
    return label;
}

QLineEdit* AddDelay(QGridLayout& grid, int row, const char* name, const QString& label, const IntSetting& setting)
{
    constexpr int Width = 64;
    auto* edit = Named(new QLineEdit(TrimmedStr(Read(setting))), name);
    edit->setFixedWidth(Width);
    grid.addWidget(MakeLabel(label, edit, Indent), row, 0);
    grid.addWidget(edit, row, 1);
    grid.addWidget(new QLabel(u"minutes"_s), row, 2);
    return edit;
}
} // namespace

NetworkOptionForm::NetworkOptionForm(QWidget* owner, const NetworkControls& network, ServerMove& server)
    : QDialog(owner), m_network(network), m_server(server)
{
    setObjectName(u"NetworkOptionForm"_s);
    setWindowTitle(u"Network Options"_s);
    auto* column = DialogColumn(*this);
    column->addWidget(MakeFrame());
    column->addWidget(MakeServerFrame());
    column->addWidget(MakeOkCancel(*this, u"btnOK"_s));
    ShowServer();
    CenterOnScreen(*this);
}

QWidget* NetworkOptionForm::MakeFrame()
{
    auto* frame = new DialogPart(u"Workgroup"_s);
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(2, 1);
    m_chkAutoUnlock = AddSwitch(*grid, 0, "chkAutoUnlock", u"&Unlock a day that is left idle"_s, settings::AutoUnLock);
    m_txtUnlockDelay = AddDelay(*grid, 1, "txtUnlockDelay", u"a&fter"_s, settings::UnlockDelay);
    m_chkAutoRefresh =
        AddSwitch(*grid, 2, "chkAutoRefresh", u"&Refresh the calendar by itself"_s, settings::AutoRefresh);
    m_txtAutoRefreshDelay = AddDelay(*grid, 3, "txtAutoRefreshDelay", u"&every"_s, settings::RefreshDelay);
    return frame;
}

QWidget* NetworkOptionForm::MakeServerFrame()
{
    auto* frame = new DialogPart(u"Workgroup Server"_s);
    auto* grid = new QGridLayout(frame);
    m_txtServer = Named(new QLineEdit, "txtServer");
    m_txtServer->setPlaceholderText(u"postgresql://user@host/database?planner=name"_s);
    m_txtServer->setMinimumWidth(m_txtServer->fontMetrics().horizontalAdvance(m_txtServer->placeholderText()) +
                                 4 * Rhythm);
    m_btnMove = Named(new QPushButton(u"&Move to Server..."_s), "btnMove");
    m_btnSaveToFile = Named(new QPushButton(u"&Save to a File..."_s), "btnSaveToFile");
    grid->addWidget(MakeLabel(u"&Address:"_s, m_txtServer), 0, 0);
    grid->addWidget(m_txtServer, 0, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_btnSaveToFile, 1, 2);
    grid->addWidget(m_btnMove, 1, 3);
    connect(m_txtServer, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_btnMove->setEnabled(!m_txtServer->isReadOnly() && !text.trimmed().isEmpty());
    });
    connect(m_btnMove, &QPushButton::clicked, this, Guarded(" in NetworkOptionsForm, btnMove_Click"_L1, [this] {
                m_server.MoveToServer(m_txtServer->text().trimmed());
                ShowServer();
            }));
    connect(m_btnSaveToFile, &QPushButton::clicked, this,
            Guarded(" in NetworkOptionsForm, btnSaveToFile_Click"_L1, [this] { m_server.SaveToFile(); }));
    return frame;
}

// A planner on a server shows its address and can be saved to a file.
void NetworkOptionForm::ShowServer()
{
    const QString address = m_server.Address();
    const bool isThere = !address.isEmpty();
    if (isThere) m_txtServer->setText(address);
    m_txtServer->setCursorPosition(0); // shows the beginning of a long address
    m_txtServer->setReadOnly(isThere);
    m_btnMove->setEnabled(!isThere && !m_txtServer->text().trimmed().isEmpty());
    m_btnSaveToFile->setEnabled(isThere);
}

void NetworkOptionForm::accept()
{
    const ErrorTail tail(" in NetworkOptionsForm, btnOK_Click"_L1);
    tail([&] { TakeSettings(); });
    QDialog::accept();
}

void NetworkOptionForm::TakeSettings()
{
    // Older versions write this spelling; keys match in any letter case.
    constexpr IntSetting UnlockDelay = {settings::UnlockDelay.section, u"UnLockDelay", 0};
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    // The running idle timer is left alone: it follows the options at the next lock.
    bGeneralUnlockEnable = TakeSwitch(*m_chkAutoUnlock, settings::AutoUnLock);
    g_bAutoRefresh = TakeSwitch(*m_chkAutoRefresh, settings::AutoRefresh);
    m_network.tmAutoRefresh->SetEnabled(g_bAutoRefresh);
    TakeDelay(m_txtUnlockDelay->text(), UnlockDelay, g_lUnlockDelay);
    TakeDelay(m_txtAutoRefreshDelay->text(), settings::RefreshDelay, g_lRefreshDelay);
}
