// What a widget of our own is to a screen reader, where the toolkit cannot tell by its class.
#pragma once

#include <QAccessible>

class QWidget;

// A focusable one with the role of a button is pressed by the space bar.
// Before anybody asks for the widget's accessible object.
void SetAccessibleRole(QWidget* widget, QAccessible::Role role);
