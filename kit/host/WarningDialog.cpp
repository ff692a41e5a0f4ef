#include "WarningDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QStyle>

namespace studio {
namespace {

// As the panel's own messages.
constexpr int kTextWidth = 56;  // of average letters
constexpr QMargins kEdge(16, 16, 16, 12);
constexpr int kColumnGap = 12;
constexpr int kRowGap = 14;

}  // namespace

WarningDialog::WarningDialog(const QString& warning, QWidget* parent)
    : QDialog(parent), m_continue(new QCheckBox(tr("Continue to receive this message"), this))
{
    setWindowTitle(QStringLiteral("Corvex"));
    m_continue->setObjectName(QStringLiteral("continueToReceive"));
    m_continue->setChecked(true);

    const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(iconSize));
    auto* text = new QLabel(warning, this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setFixedWidth(kTextWidth * text->fontMetrics().averageCharWidth());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(kEdge);
    layout->setHorizontalSpacing(kColumnGap);
    layout->setVerticalSpacing(kRowGap);
    layout->setColumnStretch(1, 1);
    layout->addWidget(icon, 0, 0, Qt::AlignTop);
    layout->addWidget(text, 0, 1, 1, 2);
    layout->addWidget(m_continue, 1, 0, 1, 2);
    layout->addWidget(buttons, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

bool WarningDialog::ContinueToReceive() const
{
    return m_continue->isChecked();
}

}  // namespace studio
