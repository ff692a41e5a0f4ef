#include "Hints.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <array>

namespace studio {
namespace {

constexpr int kMargin = 12;

/// In the order of the steps.
constexpr std::array kTexts{
    QT_TRANSLATE_NOOP("studio::Hints", "Click a shape to select it; hold Ctrl for several."),
    QT_TRANSLATE_NOOP(
        "studio::Hints",
        "What you change in the panel is seen on the shape at once. Ctrl+Z takes it back."),
    QT_TRANSLATE_NOOP(
        "studio::Hints",
        "Drag in the view to turn it; the wheel zooms. Help > Keys and Mouse has the rest."),
    QT_TRANSLATE_NOOP("studio::Hints", "Click a material of the library, or drag it onto a shape."),
    QT_TRANSLATE_NOOP("studio::Hints",
                      "Ctrl+S keeps the scene with its materials. F1 helps wherever you are."),
};

}  // namespace

Hints::Hints(QWidget& view)
    : QFrame(&view), m_text(new QLabel(this)), m_count(new QLabel(this)),
      m_next(new QPushButton(tr("&Next"), this))
{
    setObjectName(QStringLiteral("hints"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    m_text->setWordWrap(true);
    m_next->setObjectName(QStringLiteral("nextHint"));
    auto* close = new QPushButton(tr("&Close"), this);
    close->setObjectName(QStringLiteral("closeHints"));
    close->setToolTip(tr("Help > First Steps shows them again"));
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(m_count);
    row->addWidget(m_next);
    row->addWidget(close);
    connect(m_next, &QPushButton::clicked, this, &Hints::Next);
    connect(close, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT Ended();
    });
    view.installEventFilter(this);
    hide();
}

void Hints::Begin()
{
    m_step = 0;
    Show();
    show();
    raise();
}

void Hints::Done(Step step)
{
    if (isVisible() && static_cast<int>(step) == m_step) {
        Next();
    }
}

void Hints::Next()
{
    ++m_step;
    if (m_step < static_cast<int>(kTexts.size())) {
        Show();
        return;
    }
    hide();
    Q_EMIT Ended();
}

void Hints::Show()
{
    const int count = static_cast<int>(kTexts.size());
    m_text->setText(tr(kTexts.at(static_cast<std::size_t>(m_step))));
    m_count->setText(tr("%1 of %2").arg(m_step + 1).arg(count));
    m_next->setText(m_step + 1 < count ? tr("&Next") : tr("&Done"));
    Place();
}

void Hints::Place()
{
    const int width = std::max(0, parentWidget()->width() - 2 * kMargin);
    const int height =
        layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width) : sizeHint().height();
    setGeometry(kMargin, parentWidget()->height() - height - kMargin, width, height);
}

bool Hints::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        Place();
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace studio
