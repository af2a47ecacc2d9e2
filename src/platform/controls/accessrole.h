// The role of our own widgets for screen readers, where the toolkit cannot derive it from the class.
#pragma once

#include <QAccessible>

class QWidget;

// Call it before the widget's accessible object is requested. The space bar presses a focusable widget with the role of
// a button.
void SetAccessibleRole(QWidget* widget, QAccessible::Role role);
