#include "ModelFiles.h"

#include "DefaultScene.h"
#include "DocumentMenu.h"
#include "ModelOpener.h"
#include "ModelShapes.h"
#include "NamedMaterials.h"
#include "OpenDocument.h"
#include "ScenePane.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"

#include <QDir>
#include <QFileInfo>

namespace studio {

ModelFiles::ModelFiles(const Parts& parts, ImportProgram importer)
    : m_parts(parts), m_opener(new ModelOpener(parts.window, std::move(importer),
                                               parts.host.State().LibraryFolder()))
{
    m_opener->setParent(this);
    connect(m_opener, &ModelOpener::Opened, this, &ModelFiles::Show);
    connect(m_opener, &ModelOpener::Refused, this, &ModelFiles::Refuse);
    connect(m_opener, &ModelOpener::Cancelled, this, &ModelFiles::GiveUp);
}

void ModelFiles::Open(const QString& file)
{
    m_edits = m_parts.document.Edits();
    m_opener->Open(file);
}

void ModelFiles::ShowDefaultScene()
{
    const QDir libraries(QString::fromStdString(m_parts.host.State().LibraryFolder()));
    const auto gems =
        NamedMaterialsOf(libraries.filePath(QStringLiteral("Gems.cvm")).toStdString());
    m_parts.document.ShowUntitled(tr("Untitled"), DefaultShapes(gems), {});
    m_parts.scene.Viewport().SetHomeCamera(DefaultCamera());
}

void ModelFiles::Show(const QString& file, const ImportedModel& model)
{
    const OpenDocument& document = m_parts.document;
    if ((document.Edits() != m_edits || document.IsBusy()) && !m_parts.documentMenu.MayGo()) {
        GiveUp(file);
        return;
    }
    m_parts.document.ShowUntitled(QFileInfo(file).fileName(), ShapesOf(model),
                                  SourceModelAt(file.toStdString(), model.files));
    m_parts.messages.Log(QStringLiteral("Opened ") + file);
    Q_EMIT Opened(file, model);
}

void ModelFiles::GiveUp(const QString& file)
{
    const QString message = tr("%1 was not opened.").arg(QFileInfo(file).fileName());
    m_parts.messages.Show(message);
    Q_EMIT Refused({}, message);
}

void ModelFiles::Refuse(const QString& file, const QString& message)
{
    m_parts.messages.Log(QStringLiteral("Not opened: ") + message);
    m_parts.messages.Tell(message);
    Q_EMIT Refused(file, message);
}

}  // namespace studio
