// Object names, by which tests and style sheets find a control.
#pragma once

#include <QObject>

template <typename Control>
Control* Named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}
