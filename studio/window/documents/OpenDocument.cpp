#include "OpenDocument.h"

#include "DefaultScene.h"
#include "DocumentBackup.h"
#include "ScenePane.h"
#include "SettingNames.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/Status.h>

#include <QBuffer>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QUndoStack>

#include <unordered_map>

namespace studio {
namespace {

StudioScene::Shapes ShapesOf(const SceneContent& content)
{
    StudioScene::Shapes shapes;
    for (const ShapeState& state : content.shapes) {
        shapes.push_back(std::make_shared<StudioShape>(state));
    }
    return shapes;
}

/// Each may hold a material for every shape of a large scene.
int UndoSteps(std::size_t shapes)
{
    constexpr std::size_t kMaterials = 2'000'000;
    return static_cast<int>(
        std::clamp<std::size_t>(kMaterials / std::max<std::size_t>(shapes, 1), 200, 10'000));
}

/// The same file under another name too.
QString CanonicalPath(const QString& path)
{
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath();
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

SceneDocument* PointerTo(std::optional<SceneDocument>& document)
{
    return document ? &*document : nullptr;
}

}  // namespace

OpenDocument::OpenDocument(const Parts& parts) : m_parts(parts)
{
    connect(&m_parts.history, &QUndoStack::cleanChanged, this, &OpenDocument::MarkChanged);
    connect(&m_parts.history, &QUndoStack::indexChanged, this, [this] { ++m_edits; });
}

OpenDocument::~OpenDocument() = default;

bool OpenDocument::IsModified() const
{
    return m_differs || !m_parts.history.isClean();
}

QString OpenDocument::ReadOnlyReason() const
{
    return m_file ? QString::fromStdString(m_file->ReadOnlyReason()) : QString();
}

std::string OpenDocument::PictureFolder() const
{
    return (m_parts.host.State().Profile().cacheFolder + QStringLiteral("/Documents"))
        .toStdString();
}

void OpenDocument::SetTextures(TexturePlace place)
{
    if (place != m_textures) {
        m_textures = place;
        Differ();
        Q_EMIT TexturesChosen();
    }
}

SceneContent OpenDocument::Content() const
{
    SceneContent content;
    std::unordered_map<const StudioShape*, std::size_t> places;
    for (const auto& shape : m_parts.scene.Scene().All()) {
        places.emplace(shape.get(), content.shapes.size());
        content.shapes.push_back(shape->State());
    }
    for (const auto& shape : m_parts.scene.Selected().All()) {
        if (const auto place = places.find(shape.get()); place != places.end()) {
            content.selection.push_back(place->second);
        }
    }
    content.camera = m_parts.scene.Viewport().Camera();
    content.views = m_parts.scene.Views().All();
    content.source = m_source;
    content.textures = m_textures;
    return content;
}

SceneContent OpenDocument::ContentWithPicture() const
{
    SceneContent content = Content();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    const QImage shown = m_parts.scene.Viewport().grab().toImage();
    shown.scaled(kDocumentPicture, Qt::KeepAspectRatio, Qt::SmoothTransformation)
        .save(&buffer, "PNG");
    content.picture = png.toStdString();
    constexpr int kUnusedBits = 12;  // a number in JSON has fewer
    content.mark = static_cast<qint64>(QRandomGenerator::system()->generate64() >> kUnusedBits);
    return content;
}

void OpenDocument::Show(StudioScene::Shapes shapes, const SceneContent& content)
{
    Selection::Shapes selected;
    for (const std::size_t place : content.selection) {
        selected.push_back(shapes.at(place));
    }
    m_parts.history.clear();
    m_parts.history.setUndoLimit(UndoSteps(shapes.size()));
    m_parts.scene.Show(std::move(shapes));
    const Camera home = m_parts.scene.Scene().FramedBy(DefaultCamera());
    m_parts.scene.Viewport().SetHomeCamera(home, content.camera);
    m_parts.scene.Views().Set(content.views);
    m_parts.scene.Selected().Set(selected);
    m_textures = content.textures;
    SetSource(content.source);
}

void OpenDocument::SetSource(const SourceModel& source)
{
    m_source = source;
    m_parts.host.State().SetOpenModel(
        m_source.path.empty() ? m_path : QString::fromStdString(m_source.path));
    Q_EMIT SourceChanged();
}

void OpenDocument::SourceWritten(const SourceModel& source)
{
    SetSource(source);
    // Its file tells of the model as it was.
    m_differs = m_differs || !m_path.isEmpty();
    Q_EMIT MarkChanged();
}

void OpenDocument::Exchange(const ShownShapes& shown)
{
    m_parts.scene.Show(shown.shapes);
    m_parts.scene.Viewport().SetHomeCamera(m_parts.scene.Scene().FramedBy(DefaultCamera()));
    m_parts.scene.Selected().Set(shown.selected);
    SetSource(shown.source);
}

void OpenDocument::ShowUntitled(const QString& name, StudioScene::Shapes shapes,
                                const SourceModel& source)
{
    m_file.reset();
    m_path.clear();
    m_savedAt = {};
    m_name = name;
    SceneContent content;
    content.source = source;
    Show(std::move(shapes), content);
    Settle();
}

void OpenDocument::TakeOver(const SceneContent& content)
{
    Show(ShapesOf(content), content);
    Differ();
}

void OpenDocument::Differ()
{
    m_differs = true;
    ++m_edits;
    Q_EMIT MarkChanged();
}

/// One's own claim on the file would be in the way.
template <typename Job>
auto OpenDocument::WithoutClaim(const QString& file, const Job& job)
{
    const bool isOwn = m_file && file == m_path;
    if (isOwn) {
        m_file->LetGo();
    }
    try {
        return job();
    } catch (...) {
        if (isOwn) {
            m_file->Claim();
            Q_EMIT MarkChanged();
        }
        throw;
    }
}

std::vector<std::string> OpenDocument::Open(const QString& path)
{
    const QString file = CanonicalPath(path);
    StudioScene::Shapes shapes;
    SceneDocument::Opened opened = WithoutClaim(file, [&] {
        std::optional<SceneDocument::Opened> read;
        m_parts.work.DoOrCancel(
            tr("Opening %1...").arg(QFileInfo(file).fileName()), [&](const std::stop_token& stop) {
                read.emplace(SceneDocument::Open(file.toStdString(), PictureFolder(),
                                                 SceneDocument::Use::Edit, stop));
                shapes = ShapesOf(read->content);
            });
        return std::move(*read);
    });
    m_path = file;
    Show(std::move(shapes), opened.content);
    SettleAt(file, std::move(opened.document));
    return std::move(opened.problems);
}

void OpenDocument::Save()
{
    const SceneContent content = ContentWithPicture();
    Write(m_path, content, [&] { m_file->Save(content); });
    m_savedAt = QDateTime::currentDateTime();
    Settle();
}

void OpenDocument::SaveAs(const QString& path)
{
    const QString file = CanonicalPath(path);
    const SceneContent content = ContentWithPicture();
    SceneDocument document = WithoutClaim(file, [&] {
        std::optional<SceneDocument> made;
        Write(file, content, [&] {
            made.emplace(SceneDocument::Create(file.toStdString(), content, PictureFolder(),
                                               PointerTo(m_file)));
        });
        return std::move(*made);
    });
    SettleAt(file, std::move(document));
}

void OpenDocument::SaveCopy(const QString& path)
{
    if (CanonicalPath(path) == m_path) {
        Save();
        return;
    }
    SceneContent content = ContentWithPicture();
    content.mark = 0;
    Write(CanonicalPath(path), content, [&] {
        std::ignore =
            SceneDocument::Create(path.toStdString(), content, PictureFolder(), PointerTo(m_file));
    });
}

/// What stood in the file when the program began is kept.
void OpenDocument::Write(const QString& file, const SceneContent& content,
                         const std::function<void()>& write)
{
    const int kept = m_written.contains(file)
                         ? 0
                         : m_parts.host.Settings().Number(kBackupsSetting, kBackupsKept);
    const std::string state = m_parts.host.State().Profile().stateFolder.toStdString();
    QString trouble;
    Q_EMIT AboutToSave(file, content.mark);
    m_parts.work.Do(tr("Saving %1...").arg(QFileInfo(file).fileName()), [&] {
        try {
            BackUpDocument(file.toStdString(), state, kept);
        } catch (const CorvexMaterial::Error& error) {
            trouble = tr("The document was saved, but there is no backup of it as it was: %1")
                          .arg(QString::fromStdString(error.what()));
        }
        write();
    });
    m_written.insert(file);
    if (!trouble.isEmpty()) {
        Q_EMIT NotBackedUp(trouble);
    }
}

OpenDocument::OnDisk OpenDocument::FileNow()
{
    bool isChanged = false;
    bool isThere = false;
    m_parts.work.Do(tr("Looking at %1...").arg(m_name), [&] {
        isChanged = IsChangedOnDisk();
        isThere = QFileInfo::exists(m_path);
    });
    if (isThere) {
        return isChanged ? OnDisk::Changed : OnDisk::AsItWas;
    }
    return OnDisk::Gone;
}

void OpenDocument::SettleAt(const QString& path, SceneDocument document)
{
    m_file.emplace(std::move(document));
    m_path = path;
    m_name = QFileInfo(path).fileName();
    m_savedAt = QDateTime::currentDateTime();
    Settle();
}

void OpenDocument::Settle()
{
    m_differs = false;
    m_parts.history.setClean();
    Q_EMIT Settled();
    Q_EMIT MarkChanged();
}

}  // namespace studio
