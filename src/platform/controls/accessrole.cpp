#include "platform/controls/accessrole.h"

#include "platform/controls/postkey.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QVariant>

namespace {
constexpr char RoleProperty[] = "accessibleRole";

// A button of our own answers the space bar.
class RoleAccess : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto* button = qobject_cast<QAbstractButton*>(widget())) {
            state.pressed = button->isDown();
            // Only of those that stay in: the others would be read as switches.
            state.checkable = state.checked = button->isChecked() && !button->isDown();
        }
        return state;
    }
    QStringList actionNames() const override
    {
        return QAccessibleWidget::actionNames() +
               (role() == QAccessible::Button ? QStringList(pressAction()) : QStringList());
    }
    void doAction(const QString& name) override
    {
        if (name != pressAction()) return QAccessibleWidget::doAction(name);
        PostKey(*widget(), Qt::Key_Space, Qt::NoModifier);
    }
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    const QVariant role = object->property(RoleProperty);
    if (!role.isValid()) return nullptr;
    return new RoleAccess(static_cast<QWidget*>(object), QAccessible::Role(role.toInt())); // owned by Qt's cache
}
} // namespace

void SetAccessibleRole(QWidget* widget, QAccessible::Role role)
{
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(MakeAccess), true);
    widget->setProperty(RoleProperty, int(role));
}
