// The button that fills a dialog of styles with what a calendar without settings shows. Ok stores it as usual.
#pragma once

#include "platform/controls/named.h"

#include <QDialogButtonBox>
#include <QPushButton>

// Its role keeps it apart from Ok and Cancel.
inline QPushButton* AddDefaultsButton(QDialogButtonBox& buttons)
{
    return Named(buttons.addButton(u"&Defaults"_s, QDialogButtonBox::ResetRole), "btnDefaults");
}
