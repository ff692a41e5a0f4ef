#include "raytrace/RenderProgressDialog.h"

#include "ui_RenderProgressDialog.h"

#include <QCoreApplication>

namespace CorvexMaterial {

RenderProgressDialog::RenderProgressDialog(QWidget& over)
    : QDialog(over.window(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_over(over), m_ui(std::make_unique<Ui::RenderProgressDialog>())
{
    m_ui->setupUi(this);
    setWindowModality(Qt::ApplicationModal);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    // Escape and the window's frame end here too.
    connect(this, &QDialog::rejected, this, [this] { m_cancelled = true; });
}

RenderProgressDialog::~RenderProgressDialog() = default;

void RenderProgressDialog::Open()
{
    m_opened = true;
    adjustSize();
    const QPoint centre = m_over.mapToGlobal(m_over.rect().center());
    move(centre - rect().center());
    show();
}

void RenderProgressDialog::ShowPercent(std::optional<int> percent)
{
    if (!m_opened) {
        Open();
    }
    // A range without length shows that something is going on.
    m_ui->barProgress->setRange(0, percent ? 100 : 0);
    m_ui->barProgress->setValue(percent.value_or(0));
}

bool RenderProgressDialog::HandleInput()
{
    QCoreApplication::processEvents();
    return m_cancelled;
}

}  // namespace CorvexMaterial
