// Object names, by which tests and style sheets find controls.
#pragma once

#include <QObject>

template <typename Control>
Control* Named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

// For an element of a control array: name(index).
template <typename Control>
Control* Named(Control* control, const char* name, int index)
{
    control->setObjectName(u"%1(%2)"_s.arg(QLatin1StringView(name)).arg(index));
    return control;
}
