#include "planners/openasform.h"

#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/desktop/centeronscreen.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

OpenAsForm::OpenAsForm(const QString& plannerPath, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_opShared{new QRadioButton(u"Personal Planner"_s), new QRadioButton(u"Shared Workgroup Planner (Network)"_s)}
{
    setObjectName(u"OpenAsForm"_s);
    setWindowTitle(u"Loading "_s + plannerPath);

    auto* frame = Named(new QGroupBox(u"Open As ..."_s), "Frame3D2");
    auto* options = new QVBoxLayout(frame);
    for (int i = 0; i < 2; ++i) {
        QRadioButton* option = m_opShared[static_cast<std::size_t>(i)];
        option->setObjectName(u"opShared(%1)"_s.arg(i));
        options->addWidget(option);
    }
    m_opShared[0]->setChecked(true);

    auto* btnOk = Named(new QPushButton(u"&Ok"_s, this), "btnOk");
    btnOk->setDefault(true);
    connect(btnOk, &QPushButton::clicked, this, &QDialog::accept);

    auto* column = DialogColumn(*this);
    column->addWidget(frame);
    column->addWidget(btnOk, 0, Qt::AlignRight);
    constexpr int LeastWidth = 328;
    frame->setMinimumWidth(LeastWidth);
    CenterOnScreen(*this);
    m_opShared[0]->setFocus();
}

bool OpenAsForm::Shared() const
{
    return m_opShared[1]->isChecked();
}

void OpenAsForm::reject() {}
