#pragma once

#include "SceneContent.h"

#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace studio {

/// A scene in a file. It writes what has changed since it was opened or written last, and a change
/// is in the file whole or not at all, whenever the program ends. Every function may throw an Error
/// of status FileFailed that names the file. One thread at a time.
class SceneDocument {
public:
    struct Opened;

    /// What is only looked at can be saved by another studio meanwhile.
    enum class Use { Edit, Read };

    /// Pictures that are inside the document are put below the folder, each content once, where the
    /// materials then find them. What is refused is left as it was. It fails soon once it is to
    /// stop.
    [[nodiscard]] static Opened Open(const std::string& path, const std::string& pictureFolder,
                                     Use use = Use::Edit, const std::stop_token& stop = {});
    /// Puts a scene into a new file, which takes the place of one that has the name when all of it
    /// is on the disk. The document that the scene is from has the pictures whose files have gone.
    [[nodiscard]] static SceneDocument Create(const std::string& path, const SceneContent& content,
                                              const std::string& pictureFolder,
                                              SceneDocument* former = nullptr);

    SceneDocument(SceneDocument&&) noexcept;
    SceneDocument& operator=(SceneDocument&&) noexcept;
    ~SceneDocument();

    [[nodiscard]] const std::string& Path() const;  ///< absolute
    /// Why nothing can be saved, for a person: no right to, another studio has it open, or it was
    /// opened to be looked at; empty when it can.
    [[nodiscard]] const std::string& ReadOnlyReason() const;
    /// Whether another program wrote or replaced the file since this one read or wrote it.
    [[nodiscard]] bool IsChangedByOthers() const;

    void Save(const SceneContent& content);

    /// Another object may open or replace the file, until this one claims it again.
    void LetGo();
    void Claim();

    /// What a search for damage finds, for a person; reads all of it.
    [[nodiscard]] std::vector<std::string> StructureProblems();

private:
    struct Inside;

    explicit SceneDocument(std::unique_ptr<Inside> inside);

    std::unique_ptr<Inside> m_inside;
};

struct SceneDocument::Opened {
    SceneDocument document;
    SceneContent content;
    /// What could not be taken over and has its default, for a person.
    std::vector<std::string> problems;
};

/// That the document was saved with last; 0 where it has none, or cannot be read.
[[nodiscard]] std::int64_t DocumentMark(const std::string& path);

/// What a document that is being made is called until it is complete; one that is left over from a
/// program that was killed may be removed.
[[nodiscard]] std::string UnfinishedPath(const std::string& path);

}  // namespace studio
