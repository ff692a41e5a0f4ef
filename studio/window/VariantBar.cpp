#include "VariantBar.h"

#include "MaterialVariants.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

namespace studio {
namespace {

constexpr int kMargin = 6;

QToolButton* Button(QWidget& bar, const char* name, const QString& text, const QString& tip)
{
    auto* button = new QToolButton(&bar);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setToolTip(tip);
    button->setStatusTip(tip);
    button->setAccessibleName(text);
    button->setAccessibleDescription(tip);
    button->setFocusPolicy(Qt::TabFocus);
    bar.layout()->addWidget(button);
    return button;
}

}  // namespace

VariantBar::VariantBar(MaterialVariants& variants, QWidget& view, QWidget* parent)
    : QWidget(parent), m_variants(variants)
{
    setProperty("helpTopic", QStringLiteral("compare"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kMargin, 2 * kMargin, 0);
    const auto slot = [this](const char* name, const QString& text, MaterialVariants::Slot used) {
        QToolButton* button = Button(
            *this, name, text,
            tr("Slot %1: the selected shapes wear what it keeps; the other slot stays as it is")
                .arg(text));
        button->setCheckable(true);
        connect(button, &QToolButton::clicked, this, [this, used] { m_variants.Use(used); });
        return button;
    };
    m_first = slot("slotA", tr("A"), MaterialVariants::Slot::A);
    m_second = slot("slotB", tr("B"), MaterialVariants::Slot::B);
    row->addStretch();
    m_compare = Button(*this, "compare", tr("Compare"),
                       tr("Hold it, or C in the view, to see the selected shapes as they were when "
                          "they were selected"));
    connect(m_compare, &QToolButton::pressed, this, [this] { m_variants.Compare(true); });
    connect(m_compare, &QToolButton::released, this, [this] { m_variants.Compare(false); });
    connect(&m_variants, &MaterialVariants::UsedChanged, this, &VariantBar::ShowUsed);
    view.installEventFilter(this);
    ShowUsed();
}

void VariantBar::ShowUsed()
{
    const bool isFirst = m_variants.Used() == MaterialVariants::Slot::A;
    m_first->setChecked(isFirst);
    m_second->setChecked(!isFirst);
}

bool VariantBar::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_C && key->modifiers() == Qt::NoModifier) {
            if (!key->isAutoRepeat()) {
                m_compare->setDown(event->type() == QEvent::KeyPress);
                m_variants.Compare(event->type() == QEvent::KeyPress);
            }
            return true;
        }
    }
    if (event->type() == QEvent::FocusOut) {
        m_compare->setDown(false);
        m_variants.Compare(false);
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace studio
