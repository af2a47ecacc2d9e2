#include "platform/controls/accessrole.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QVariant>

namespace {
constexpr char RoleProperty[] = "accessibleRole";

// A button of our own answers the space bar.
class RoleAccess : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QStringList actionNames() const override
    {
        return QAccessibleWidget::actionNames() +
               (role() == QAccessible::Button ? QStringList(pressAction()) : QStringList());
    }
    void doAction(const QString& name) override
    {
        if (name != pressAction()) return QAccessibleWidget::doAction(name);
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent key(type, Qt::Key_Space, Qt::NoModifier);
            QCoreApplication::sendEvent(widget(), &key);
        }
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
