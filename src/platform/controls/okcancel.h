// The two buttons at the foot of a dialog.
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

// "&Ok", the default, accepts the dialog; "&Cancel" rejects it, as Esc does. okName is the object name of the first.
inline QDialogButtonBox* MakeOkCancel(QDialog& dialog, const QString& okName = QStringLiteral("btnOk"))
{
    auto* buttons = new QDialogButtonBox(&dialog); // else the dialog would forget the default once Cancel had the focus
    QPushButton* ok = buttons->addButton(QStringLiteral("&Ok"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(okName);
    ok->setDefault(true);
    buttons->addButton(QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("btnCancel"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}
