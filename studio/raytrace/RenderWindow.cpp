#include "studio/raytrace/RenderWindow.h"

#include "host/Status.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QImageWriter>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollArea>
#include <QVBoxLayout>

namespace studio {

RenderWindow::RenderWindow(QWidget* parent)
    : QDialog(parent), m_run(new PovRayRun(this)), m_picture(new QLabel(this)),
      m_status(new QLabel(tr("POV-Ray is starting."), this)), m_progress(new QProgressBar(this)),
      m_save(new QPushButton(tr("&Save As PNG..."), this)),
      m_cancel(new QPushButton(tr("Cancel"), this))
{
    setWindowTitle(tr("Render"));
    m_picture->setObjectName(QStringLiteral("renderedPicture"));
    m_picture->setAlignment(Qt::AlignCenter);
    m_status->setObjectName(QStringLiteral("renderStatus"));
    m_status->setWordWrap(true);
    m_progress->setRange(0, 100);
    m_save->setObjectName(QStringLiteral("saveRendered"));
    m_save->setEnabled(false);
    m_cancel->setObjectName(QStringLiteral("cancelRender"));
    auto* area = new QScrollArea(this);
    area->setWidget(m_picture);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_status, 1);
    buttons->addWidget(m_progress);
    buttons->addWidget(m_save);
    buttons->addWidget(m_cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area, 1);
    layout->addLayout(buttons);
    connect(m_run, &PovRayRun::Progress, this, [this](int percent) {
        m_status->setText(tr("POV-Ray is rendering."));
        m_progress->setValue(percent);
    });
    connect(m_run, &PovRayRun::Finished, this, &RenderWindow::ShowPicture);
    connect(m_run, &PovRayRun::Failed, this, &RenderWindow::ShowFailure);
    connect(m_save, &QPushButton::clicked, this, &RenderWindow::ChooseFile);
    connect(m_cancel, &QPushButton::clicked, this, &RenderWindow::CancelOrClose);
}

void RenderWindow::Start(const QString& program, const RaytraceScene& scene,
                         const RaytraceImages::Lookup& textures, int antialias)
{
    const QSize size(scene.frame.width, scene.frame.height);
    m_picture->setMinimumSize(size);
    const QSize room = screen()->availableSize() * 9 / 10;
    resize((size + QSize(40, 80)).boundedTo(room));
    m_run->Start(program, scene, textures, antialias);
}

void RenderWindow::CancelOrClose()
{
    if (m_run->IsRunning()) {
        m_cancel->setEnabled(false);
        m_status->setText(tr("POV-Ray is being stopped."));
        m_run->Cancel();
    } else {
        reject();
    }
}

void RenderWindow::ShowPicture(const QImage& picture)
{
    m_result = picture;
    m_picture->setPixmap(QPixmap::fromImage(picture));
    m_progress->hide();
    m_status->setText(tr("%1 by %2 pixels").arg(picture.width()).arg(picture.height()));
    m_save->setEnabled(true);
    m_save->setDefault(true);
    m_cancel->setText(tr("Close"));
    Q_EMIT Ended({});
}

void RenderWindow::ShowFailure(const QString& message)
{
    const QString text = message.isEmpty() ? tr("Cancelled.") : message;
    m_progress->hide();
    m_status->setText(text);
    m_cancel->setText(tr("Close"));
    m_cancel->setEnabled(true);
    Q_EMIT Ended(text);
}

void RenderWindow::SaveTo(const QString& file) const
{
    QSaveFile target(file);
    QImageWriter writer(&target, "png");
    if (!target.open(QIODevice::WriteOnly) || !writer.write(m_result) || !target.commit()) {
        throw CorvexMaterial::Error(
            CorvexMaterial::Status::FileFailed,
            tr("%1 cannot be written: %2").arg(file, target.errorString()).toStdString());
    }
}

void RenderWindow::ChooseFile()
{
    const QString file = QFileDialog::getSaveFileName(
        this, tr("Save Picture"), QStringLiteral("render.png"), tr("PNG pictures (*.png)"));
    if (file.isEmpty()) {
        return;
    }
    try {
        SaveTo(file);
    } catch (const CorvexMaterial::Error& error) {
        QMessageBox::warning(this, windowTitle(), QString::fromStdString(error.what()));
    }
}

}  // namespace studio
