#include "RenderWindow.h"

#include "PictureFile.h"
#include "SaveDialog.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace studio {

RenderWindow::RenderWindow(CorvexMaterial::ProcessStarter& processes, QWidget* parent)
    : QDialog(parent), m_run(new RaytraceRun(processes, this)), m_picture(new QLabel(this)),
      m_status(new QLabel(tr("The raytracer is starting."), this)), m_losses(new QLabel(this)),
      m_progress(new QProgressBar(this)), m_save(new QPushButton(tr("&Save As PNG..."), this)),
      m_cancel(new QPushButton(tr("&Cancel"), this))
{
    setWindowTitle(tr("Render"));
    m_picture->setObjectName(QStringLiteral("renderedPicture"));
    m_picture->setAlignment(Qt::AlignCenter);
    m_status->setObjectName(QStringLiteral("renderStatus"));
    m_status->setWordWrap(true);
    m_status->setTextFormat(Qt::PlainText);  // it shows what a program wrote
    m_losses->setObjectName(QStringLiteral("renderLosses"));
    m_losses->setWordWrap(true);
    m_losses->setTextFormat(Qt::PlainText);
    m_losses->hide();
    m_progress->setRange(0, 100);
    m_save->setObjectName(QStringLiteral("saveRendered"));
    m_save->setEnabled(false);
    m_cancel->setObjectName(QStringLiteral("cancelRender"));
    auto* area = new QScrollArea(this);
    area->setAccessibleName(tr("Rendered picture"));
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
    layout->addWidget(m_losses);
    layout->addLayout(buttons);
    connect(m_run, &RaytraceRun::Progress, this, [this](int percent) {
        if (m_cancel->isEnabled()) {
            m_status->setText(tr("The raytracer is rendering."));
        }
        m_progress->setValue(percent);
    });
    connect(m_run, &RaytraceRun::Finished, this, &RenderWindow::ShowPicture);
    connect(m_run, &RaytraceRun::Failed, this, &RenderWindow::ShowFailure);
    connect(m_save, &QPushButton::clicked, this, &RenderWindow::ChooseFile);
    connect(m_cancel, &QPushButton::clicked, this, &RenderWindow::CancelOrClose);
}

void RenderWindow::Start(const RaytracerProgram& program, const RaytraceScene& scene,
                         const RaytraceImages::Lookup& textures, int antialias)
{
    const QSize size(scene.frame.width, scene.frame.height);
    m_picture->setMinimumSize(size);
    m_losses->setText(LossNote(*program.writer->raytracer, scene, textures));
    m_losses->setVisible(!m_losses->text().isEmpty());
    const int around = 80 + (m_losses->text().isEmpty() ? 0 : 2 * m_losses->sizeHint().height());
    const QSize room = screen()->availableSize() * 9 / 10;
    resize((size + QSize(40, around)).boundedTo(room));
    m_run->Start(program, scene, textures, antialias);
}

void RenderWindow::CancelOrClose()
{
    if (m_run->IsRunning()) {
        m_cancel->setEnabled(false);
        m_status->setText(tr("The raytracer is being stopped."));
        m_run->Cancel();
    } else {
        reject();
    }
}

void RenderWindow::ShowMeanwhile(const QPixmap& picture)
{
    constexpr int kDimmed = 150;  // of 255
    QColor veil = palette().color(QPalette::Window);
    veil.setAlpha(kDimmed);
    QPixmap dim = picture;
    QPainter(&dim).fillRect(dim.rect(), veil);
    m_picture->setPixmap(dim);
}

void RenderWindow::ShowPicture(const QImage& picture)
{
    m_result = picture;
    m_picture->setPixmap(QPixmap::fromImage(picture));
    m_progress->hide();
    m_status->setText(tr("%1 by %2 pixels").arg(picture.width()).arg(picture.height()));
    m_save->setEnabled(true);
    m_save->setDefault(true);
    m_cancel->setText(tr("&Close"));
    Q_EMIT Ended({});
}

void RenderWindow::ShowFailure(const QString& message)
{
    const QString text = message.isEmpty() ? tr("Cancelled.") : message;
    m_picture->clear();
    m_progress->hide();
    m_status->setText(text);
    m_cancel->setText(tr("&Close"));
    m_cancel->setEnabled(true);
    Q_EMIT Ended(text);
}

void RenderWindow::SaveTo(const QString& file) const
{
    SavePicture(m_result, file, {"png"});
}

void RenderWindow::ChooseFile()
{
    const QString file = AskForTarget(
        *this,
        {tr("Save Picture"), m_folder, {tr("PNG pictures (*.png)")}, QStringLiteral("render")});
    if (file.isEmpty()) {
        return;
    }
    m_folder = QFileInfo(file).absolutePath();
    Q_EMIT FolderChosen(m_folder);
    try {
        SaveTo(file);
    } catch (const CorvexMaterial::Error& error) {
        QMessageBox::warning(this, QStringLiteral("Corvex"), QString::fromStdString(error.what()));
    }
}

}  // namespace studio
