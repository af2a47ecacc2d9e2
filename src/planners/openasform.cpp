#include "planners/openasform.h"

#include "planners/startplanner.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/softtext.h"
#include "platform/desktop/centeronscreen.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

OpenAsForm::OpenAsForm(const QString& plannerPath, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_opShared{new QRadioButton(u"Personal Planner"_s), new QRadioButton(u"Shared Workgroup Planner (Network)"_s)},
      m_chkAtEveryStart(Named(new QCheckBox(u"Open this planner at &every start"_s), "chkAtEveryStart"))
{
    setObjectName(u"OpenAsForm"_s);
    setWindowTitle(u"Loading "_s + plannerPath);

    auto* frame = Named(new DialogPart(u"Open As ..."_s), "Frame3D2");
    auto* options = new QVBoxLayout(frame);
    options->setSpacing(0);
    AddOption(*options, 0, u"Yours alone while it is open. You type in any day."_s);
    options->addSpacing(Rhythm);
    AddOption(*options, 1, u"Several people can have it open. You lock a day before you type in it."_s);
    m_opShared[0]->setChecked(true);
    m_chkAtEveryStart->setChecked(IsStartPlanner(plannerPath));

    auto* btnOk = Named(new QPushButton(u"&Ok"_s, this), "btnOk");
    btnOk->setDefault(true);
    connect(btnOk, &QPushButton::clicked, this, &QDialog::accept);

    auto* column = DialogColumn(*this);
    column->addWidget(frame);
    column->addWidget(m_chkAtEveryStart);
    column->addWidget(btnOk, 0, Qt::AlignRight);
    constexpr int LeastWidth = 328;
    frame->setMinimumWidth(LeastWidth);
    CenterOnScreen(*this);
    m_opShared[0]->setFocus();
}

// The meaning stands below the option, where its text begins.
void OpenAsForm::AddOption(QLayout& options, int index, const QString& meaning)
{
    QRadioButton* option = Named(m_opShared[static_cast<std::size_t>(index)], "opShared", index);
    auto* line = new QLabel(meaning);
    SoftenText(*line);
    line->setIndent(style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) +
                    style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing));
    option->setAccessibleDescription(meaning);
    options.addWidget(option);
    options.addWidget(line);
}

bool OpenAsForm::Shared() const
{
    return m_opShared[1]->isChecked();
}

bool OpenAsForm::AtEveryStart() const
{
    return m_chkAtEveryStart->isChecked();
}

void OpenAsForm::reject() {}
