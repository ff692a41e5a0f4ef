#pragma once

#include "FileWork.h"
#include "SceneDocument.h"
#include "Selection.h"
#include "StudioScene.h"

#include <QDateTime>
#include <QObject>
#include <QSet>

#include <optional>

class QUndoStack;

namespace studio {

class ScenePane;
class StudioHost;

/// What a scene shows of a model.
struct ShownShapes {
    StudioScene::Shapes shapes;
    Selection::Shapes selected;
    SourceModel source;
};

/// The document that the window works on: which file it is, and whether it is as it was saved.
/// Whatever reads or writes the file may throw an Error that names it; then nothing has changed.
class OpenDocument : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        ScenePane& scene;
        QUndoStack& history;
        FileWork& work;
    };

    explicit OpenDocument(const Parts& parts);
    ~OpenDocument() override;

    /// Absolute; empty for one that was never saved.
    [[nodiscard]] QString Path() const { return m_path; }
    [[nodiscard]] QString Name() const { return m_name; }
    /// When the file was read or written last; invalid for one that was never saved.
    [[nodiscard]] const QDateTime& SavedAt() const { return m_savedAt; }
    [[nodiscard]] bool IsModified() const;
    /// Another number after each edit, and each undoing of one.
    [[nodiscard]] int Edits() const { return m_edits; }
    /// While a file is read or written, drops are taken all the same.
    [[nodiscard]] bool IsBusy() const { return m_parts.work.IsWaiting(); }
    /// For a person; empty when it can be saved.
    [[nodiscard]] QString ReadOnlyReason() const;
    [[nodiscard]] const SourceModel& Source() const { return m_source; }
    [[nodiscard]] TexturePlace Textures() const { return m_textures; }
    void SetTextures(TexturePlace place);

    /// The scene as it is now, without a picture.
    [[nodiscard]] SceneContent Content() const;

    /// A scene that no document holds yet.
    void ShowUntitled(const QString& name, StudioScene::Shapes shapes, const SourceModel& source);
    /// Takes another scene, of a recovery, into the document, which is modified then.
    void TakeOver(const SceneContent& content);
    /// The model's files were written by this program, and the scene is as they are.
    void SourceWritten(const SourceModel& source);
    /// A step of the history puts other shapes in the place of those shown, or takes them back.
    void Exchange(const ShownShapes& shown);

    /// Returns what could not be taken over, for a person. The document that is open already is
    /// read again. The user can cancel it, see FileWork.
    std::vector<std::string> Open(const QString& path);
    void Save();
    /// From now on it is the document of this file.
    void SaveAs(const QString& path);
    void SaveCopy(const QString& path);
    /// Whether it is another on the disk now than was read or written last.
    [[nodiscard]] bool IsChangedOnDisk() const { return m_file && m_file->IsChangedByOthers(); }
    /// The same, and whether it is there at all, for a disk that may let one wait.
    enum class OnDisk { AsItWas, Changed, Gone };
    [[nodiscard]] OnDisk FileNow();

Q_SIGNALS:
    void SourceChanged();
    /// It is now as its file is, or has none: opened, saved or new.
    void Settled();
    /// The file has the mark when all of the scene is in it; a copy has none.
    void AboutToSave(const QString& file, qint64 mark);
    /// Saving went on without; for a person.
    void NotBackedUp(const QString& message);
    void TexturesChosen();
    /// Its name, its being modified or its being read-only may have changed.
    void MarkChanged();

private:
    void Show(StudioScene::Shapes shapes, const SceneContent& content);
    void SetSource(const SourceModel& source);
    [[nodiscard]] SceneContent ContentWithPicture() const;
    [[nodiscard]] std::string PictureFolder() const;
    template <typename Job>
    [[nodiscard]] auto WithoutClaim(const QString& file, const Job& job);
    void SettleAt(const QString& path, SceneDocument document);
    void Settle();
    void Differ();
    void Write(const QString& file, const SceneContent& content,
               const std::function<void()>& write);

    Parts m_parts;
    std::optional<SceneDocument> m_file;
    QString m_path;
    QString m_name;
    QDateTime m_savedAt;
    SourceModel m_source;
    TexturePlace m_textures = TexturePlace::Referenced;
    QSet<QString> m_written;  ///< files, by this program
    bool m_differs = false;   ///< in what is no step of the history
    int m_edits = 0;
};

}  // namespace studio
