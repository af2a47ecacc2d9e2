// The two buttons at the foot of a dialog.
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

// "&Ok", the default, accepts the dialog; "&Cancel" rejects it, as Esc does. okName is the object name of the first.
inline QDialogButtonBox* MakeOkCancel(QDialog& dialog, const QString& okName = u"btnOk"_s)
{
    // In the dialog from the start: it would not hear of its default button otherwise.
    auto* buttons = new QDialogButtonBox(&dialog);
    QPushButton* ok = buttons->addButton(u"&Ok"_s, QDialogButtonBox::AcceptRole);
    ok->setObjectName(okName);
    ok->setDefault(true);
    buttons->addButton(u"&Cancel"_s, QDialogButtonBox::RejectRole)->setObjectName(u"btnCancel"_s);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}
