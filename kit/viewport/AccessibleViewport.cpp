#include "AccessibleViewport.h"

#include "ViewportWidget.h"

#include <QAccessibleWidget>

namespace studio {
namespace {

class AccessibleViewport : public QAccessibleWidget {
public:
    explicit AccessibleViewport(ViewportWidget& viewport)
        : QAccessibleWidget(&viewport, QAccessible::Canvas), m_viewport(viewport)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) {
            return m_viewport.PositionText();
        }
        const QString own = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Description) {
            return own;
        }
        return own.isEmpty() ? m_viewport.PositionText()
                             : ViewportWidget::tr("%1. %2").arg(own, m_viewport.PositionText());
    }

private:
    ViewportWidget& m_viewport;
};

QAccessibleInterface* Accessible(const QString& /*className*/, QObject* object)
{
    auto* viewport = qobject_cast<ViewportWidget*>(object);
    return viewport != nullptr ? new AccessibleViewport(*viewport) : nullptr;
}

}  // namespace

void MakeViewportsAccessible()
{
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(Accessible);
        return true;
    }();
}

void TellAccessibly(ViewportWidget& viewport)
{
    QAccessibleEvent event(&viewport, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

}  // namespace studio
