#pragma once

#include "LibraryDrag.h"
#include "LibraryLink.h"
#include "ShapeChange.h"

#include <QObject>

#include <map>
#include <optional>

class QMenu;

namespace studio {

class LibraryBrowser;
class MaterialLink;
class PanelLibraries;
class ScenePane;
class StudioHost;
class WindowMessages;

enum class LinkState { Current, Newer, Missing };

/// Materials of the scene that are linked to entries of libraries: what is taken as a link, and
/// what can be done with one. A material is copied unless the user asks for a link.
class LibraryLinks : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        MaterialLink& link;
        PanelLibraries& libraries;
    };

    explicit LibraryLinks(const Parts& parts);
    ~LibraryLinks() override;

    /// Gives shapes what was dropped on them, linked where the user holds Shift; where the options
    /// say that links are the rule, Shift is for a copy.
    void Put(const ShapeList& shapes, const DroppedMaterial& dropped);
    /// As if the user had clicked the selected entry, which is linked to.
    void ApplyLinked(LibraryBrowser& browser);

    /// Null for a material of its own.
    [[nodiscard]] static const LibraryLink* LinkOf(const StudioShape& shape);
    [[nodiscard]] static bool HasChanges(const StudioShape& shape);
    [[nodiscard]] LinkState StateOf(const LibraryLink& link);
    /// For a person; empty for a material of its own.
    [[nodiscard]] QString TextOf(const StudioShape& shape);

    /// What the libraries hold now; what the scene has changed stays.
    void Update(const ShapeList& shapes);
    /// Without what the scene has changed.
    void Revert(const ShapeList& shapes);
    /// The entries become what the scene has made of them.
    void PushBack(const ShapeList& shapes);
    void Unlink(const ShapeList& shapes);
    /// All of these, as far as they are of use.
    void AddTo(QMenu& menu, const ShapeList& shapes);

    /// With these for the selected shapes, as they are then.
    void FillWhenOpened(QMenu& menu);

    /// Libraries may be others than they were.
    void LookAgain();

Q_SIGNALS:
    /// The state of links may be another.
    void Changed();

private:
    using Linked = std::vector<std::pair<std::shared_ptr<StudioShape>, const LibraryLink*>>;

    [[nodiscard]] bool IsRule() const;
    [[nodiscard]] std::shared_ptr<const LibraryLink> LinkTo(const EntryOrigin& origin,
                                                            const std::string& name) const;
    /// One shape for each linked material of these.
    [[nodiscard]] static Linked LinkedOf(const ShapeList& shapes);
    [[nodiscard]] ShapeList SharersOf(const std::shared_ptr<StudioShape>& shape) const;
    using Edit = std::function<CorvexDB::udtMaterial(const CorvexDB::udtMaterial&)>;
    void AddChanges(std::vector<ShapeChange>& changes, const std::shared_ptr<StudioShape>& shape,
                    const std::shared_ptr<const LibraryLink>& link, const Edit& edit) const;
    [[nodiscard]] std::optional<LibraryLink> Pushed(const StudioShape& shape,
                                                    const LibraryLink& link);

    Parts m_parts;
    bool m_linksNext = false;
    /// Of the entry by library and id; nothing where it is gone.
    std::map<std::pair<std::string, EntryId>, std::optional<std::string>> m_revisions;
};

}  // namespace studio
