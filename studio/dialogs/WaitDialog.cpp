#include "WaitDialog.h"

#include <QApplication>
#include <QLabel>

namespace studio {
namespace {

constexpr int kShowAfterMilliseconds = 400;

}  // namespace

WaitDialog::WaitDialog(const QString& text, QWidget* parent, int steps)
    : QProgressDialog({}, tr("Cancel"), 0, steps, parent)
{
    auto* label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    setLabel(label);
    setWindowTitle(QStringLiteral("Corvex"));
    setWindowModality(Qt::WindowModal);
    setMinimumDuration(kShowAfterMilliseconds);
    m_shownLater.start();
}

void WaitDialog::setVisible(bool visible)
{
    const QWidget* modal = QApplication::activeModalWidget();
    const bool mayShow = modal == nullptr || modal == this || modal == parentWidget();
    QProgressDialog::setVisible(visible && mayShow);
}

void WaitDialog::LetWindowGoOn()
{
    setWindowModality(Qt::NonModal);
    setAttribute(Qt::WA_ShowWithoutActivating);
}

bool WaitDialog::Cancelled()
{
    if (m_shownLater.hasExpired(kShowAfterMilliseconds)) {
        if (!isVisible() && !wasCanceled()) {
            show();
        }
        QCoreApplication::processEvents();
    }
    return wasCanceled();
}

void WaitDialog::showEvent(QShowEvent* event)
{
    QProgressDialog::showEvent(event);
    Q_EMIT ShownOrHidden();
}

void WaitDialog::hideEvent(QHideEvent* event)
{
    QProgressDialog::hideEvent(event);
    Q_EMIT ShownOrHidden();
}

}  // namespace studio
