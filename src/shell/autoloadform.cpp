#include "shell/autoloadform.h"

#include "planners/startplanner.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/profile/profile.h"
#include "settings/settings.h"
#include "state/plannerstate.h"
#include "state/viewmode.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

AutoloadForm::AutoloadForm(QWidget* owner) : QDialog(owner)
{
    setObjectName(u"AutoloadForm"_s);
    setWindowTitle(u"Customize Startup"_s);
    auto* column = DialogColumn(*this);
    FillFileFrame(AddPart(*column, u"Autoload File"_s));
    QLayout& options = AddPart(*column, u"StartUp Options"_s);
    m_opShared = {AddTo<QRadioButton>(options, "opShared(0)", u"Personal Planner"_s),
                  AddTo<QRadioButton>(options, "opShared(1)", u"Shared Workgroup Planner (Network)"_s)};
    m_chkMinimized = AddTo<QCheckBox>(options, "chkMinimized", u"Startup Minimized"_s);
    QLayout& views = AddPart(*column, u"Startup View"_s);
    m_opStartupView = {AddTo<QRadioButton>(views, "opStartupView(0)", u"Week"_s),
                       AddTo<QRadioButton>(views, "opStartupView(1)", u"Month"_s)};
    column->addWidget(MakeOkCancel(*this));
    ShowSettings();
    CenterOnScreen(*this);
    m_chkAutoload->setFocus();
}

void AutoloadForm::FillFileFrame(QLayout& column)
{
    constexpr int PathWidth = 360;
    auto* lblAutoload = AddTo<QLabel>(column, "lblAutoload", QString());
    lblAutoload->setTextFormat(Qt::PlainText);
    lblAutoload->setFixedWidth(PathWidth);
    // The beginning and the end of a path say most: disk and name.
    lblAutoload->setText(lblAutoload->fontMetrics().elidedText(g_sDBPath, Qt::ElideMiddle, PathWidth));
    lblAutoload->setToolTip(g_sDBPath);
    m_chkAutoload = AddTo<QCheckBox>(column, "chkAutoload", u"Check to autoload current planner"_s);
}

void AutoloadForm::ShowSettings()
{
    m_chkAutoload->setChecked(Read(settings::LoadCondition) == 1);
    m_opShared[Read(settings::LoadWorkgroup) == 0 ? 0 : 1]->setChecked(true);
    const int view = Read(settings::ViewPrefInDialog);
    if (view == ViewMode::Week) m_opStartupView[0]->setChecked(true);
    if (view == ViewMode::Month) m_opStartupView[1]->setChecked(true);
    m_chkMinimized->setChecked(Read(settings::Minimized) == 1);
}

void AutoloadForm::accept()
{
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    WriteStartPlanner(m_chkAutoload->isChecked());
    Write(settings::ViewPref, m_opStartupView[0]->isChecked() ? ViewMode::Week : ViewMode::Month);
    Write(settings::Minimized, m_chkMinimized->isChecked() ? 1 : 0);
    Write(settings::LoadWorkgroup, m_opShared[0]->isChecked() ? 0 : 1);
    QDialog::accept();
}
