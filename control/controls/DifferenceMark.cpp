#include "DifferenceMark.h"

#include "DifferencePainting.h"
#include <CorvexMaterial/PlainText.h>

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace CorvexMaterial {

QString MultipleValues()
{
    return DifferenceMark::tr("Multiple values");
}

DifferenceMark::DifferenceMark(QWidget& control) : QObject(&control), m_control(control)
{
    control.installEventFilter(this);
}

DifferenceMark& DifferenceMark::Of(QWidget& control)
{
    auto* mark = control.findChild<DifferenceMark*>({}, Qt::FindDirectChildrenOnly);
    return mark != nullptr ? *mark : *new DifferenceMark(control);
}

bool DifferenceMark::IsOn(const QWidget& control)
{
    const auto* mark = control.findChild<DifferenceMark*>({}, Qt::FindDirectChildrenOnly);
    return mark != nullptr && mark->m_isOn;
}

void DifferenceMark::Show(const Values& values)
{
    if (m_isOn && values == m_values) {
        return;
    }
    if (!m_isOn) {
        m_description = m_control.accessibleDescription();
    }
    m_isOn = true;
    m_values = values;
    m_control.setAccessibleDescription(values.text);
    m_control.update();
}

void DifferenceMark::Hide()
{
    if (!m_isOn) {
        return;
    }
    m_isOn = false;
    // One that the control was given meanwhile stays.
    if (m_control.accessibleDescription() == m_values.text) {
        m_control.setAccessibleDescription(m_description);
    }
    m_control.update();
}

// What the control says of itself is no less true.
QString DifferenceMark::ToolTip() const
{
    const QString own = m_control.toolTip();
    return PlainTip(own.isEmpty() || Qt::mightBeRichText(own) ? m_values.text
                                                              : m_values.text + u'\n' + own);
}

bool DifferenceMark::eventFilter(QObject* watched, QEvent* event)
{
    if (m_isOn && event->type() == QEvent::ToolTip) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), ToolTip(), &m_control);
        return true;
    }
    if (m_isOn && event->type() == QEvent::Paint) {
        PaintDiffering(m_control, m_values.colours, [&] { watched->event(event); });
        return true;
    }
    return false;
}

}  // namespace CorvexMaterial
