// The OK and Cancel buttons of a dialog.
#pragma once

#include "platform/controls/dialogcolumn.h"

#include <QDialogButtonBox>
#include <QPushButton>

// Has its parent at once, or a default button in it would not reach the dialog.
inline QDialogButtonBox* MakeButtonBox(QDialog& dialog)
{
    auto* buttons = new QDialogButtonBox(&dialog);
    buttons->layout()->setSpacing(Rhythm);
    return buttons;
}

// "&Ok" is the default and accepts the dialog; "&Cancel" and Esc reject it. okName is the object name of "&Ok".
inline QDialogButtonBox* MakeOkCancel(QDialog& dialog, const QString& okName = u"btnOk"_s)
{
    QDialogButtonBox* buttons = MakeButtonBox(dialog);
    QPushButton* ok = buttons->addButton(u"&Ok"_s, QDialogButtonBox::AcceptRole);
    ok->setObjectName(okName);
    ok->setDefault(true);
    buttons->addButton(u"&Cancel"_s, QDialogButtonBox::RejectRole)->setObjectName(u"btnCancel"_s);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}
