#include "AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace CorvexMaterial {

namespace {

constexpr const char* kRole = "accessibleRole";

QAccessibleInterface* WithRole(const QString& /*className*/, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget != nullptr ? widget->property(kRole) : QVariant();
    return role.isValid()
               ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()))
               : nullptr;
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role)
{
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(WithRole);
        return true;
    }();
    widget.setProperty(kRole, static_cast<int>(role));
}

}  // namespace CorvexMaterial
