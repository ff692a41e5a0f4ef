#pragma once

#include "MaterialCommand.h"
#include "MaterialPreviewing.h"
#include "Selection.h"
#include "StudioScene.h"
#include <CorvexMaterial/Material.h>

#include <QObject>
#include <QUndoStack>

namespace studio {

/// What the link connects; all of it outlives the link.
struct LinkedParts {
    CorvexMaterial::Material& material;
    StudioScene& scene;
    Selection& selection;
    QUndoStack& history;
    /// Name of the library's entry that the panel has asked for since the last call; empty for
    /// none.
    std::function<std::string()> takenEntry;
};

/// Keeps the material panel and the selected shapes together: an edit in the panel goes to every
/// selected shape as one undo step, and the shape chosen last shows its material in the panel. One
/// shape takes the panel's material; of several each takes what was touched and keeps the rest of
/// its own, unless a whole material was put in the place of the old; the panel marks where they
/// differ. A chosen wrap, be it the one
/// that was chosen already, takes shapes the coordinates of their mesh. A material from the library
/// keeps its name.
class MaterialLink : public QObject {
    Q_OBJECT

public:
    /// Milliseconds of a clock that never goes back.
    using Clock = std::function<std::chrono::milliseconds()>;

    MaterialLink(LinkedParts parts, Clock clock, QObject* parent = nullptr);

    /// Asked for when the panel has taken a library's entry; null for a copy. What it does not
    /// know, the name and what was taken, is filled in.
    using LinkChoice = std::function<std::shared_ptr<const LibraryLink>()>;
    void SetLinkChoice(LinkChoice choice) { m_linkChoice = std::move(choice); }

    /// Makes changes that do not come from the panel, as one undo step; the panel shows them.
    void Make(std::vector<ShapeChange> changes);
    /// Gives shapes a material that does not come from the panel, as one undo step. With a name
    /// it is shared with the shapes that have this material already.
    void Put(const std::shared_ptr<StudioShape>& shape, const CorvexDB::udtMaterial& material,
             const std::string& name = {})
    {
        Put(ShapeList{shape}, material, name);
    }
    /// With a link it is linked to it.
    void Put(const ShapeList& shapes, const CorvexDB::udtMaterial& material,
             const std::string& name = {}, const std::shared_ptr<const LibraryLink>& link = {});
    /// Gives shapes the material that this one wears, as one undo step; they share it.
    void Share(const StudioShape& wearer, const ShapeList& shapes);
    /// What `Put` would do to the shape, to be shown before it is done.
    [[nodiscard]] static ShapeChange PutOf(const std::shared_ptr<StudioShape>& shape,
                                           const CorvexDB::udtMaterial& material);
    /// An edit that is still under way: the selected shapes and the panel show what it would come
    /// to. It ends with `Finish`, which makes it, with `GiveUp`, or with the next selection.
    void Try(const std::vector<CorvexMaterial::EditedRow>& rows);
    void Finish(const std::vector<CorvexMaterial::EditedRow>& rows);
    void GiveUp();
    /// What is shown on shapes that does not count yet. It ends with the next selection.
    [[nodiscard]] MaterialPreviewing& Previewing() { return m_previewing; }

Q_SIGNALS:
    /// Shapes look different now.
    void ShapesChanged();
    /// The control refused an operation.
    void Failed(const QString& what, CorvexMaterial::Status status);
    /// How many shapes the next edit goes to, and how many materials they have.
    void Affects(std::size_t shapes, std::size_t materials);

private:
    enum class Coordinates { Kept, Wrapped };

    void ApplyEdit(const CorvexMaterial::MaterialEdit& edit);
    void Preview(const CorvexMaterial::MaterialEdit& edit);
    [[nodiscard]] std::vector<ShapeChange> AppliedWhole(Coordinates coordinates);
    [[nodiscard]] CorvexMaterial::Status Apply(StudioShape& shape, Coordinates coordinates);
    /// Without a name as an edit does, which leaves those alone that share a material.
    void Name(std::vector<ShapeChange>& changes, const std::string& name,
              const std::shared_ptr<const LibraryLink>& link = {}) const;
    void Push(std::vector<ShapeChange> changes, FieldSet fields, std::uint32_t gesture = 0);
    void ShowSelected();
    [[nodiscard]] CorvexMaterial::Status Show(const CorvexSG::GatheredMaterial& gathered);
    void ShowAgain(const ShapeList& shapes);
    /// Once, however often it is asked for until the events that wait have been handled.
    void ShowDifferencesSoon();
    void ShowDifferences();

    LinkedParts m_parts;
    Clock m_clock;
    LinkChoice m_linkChoice;
    MaterialPreviewing m_previewing;
    bool m_showsSoon = false;
    bool m_showsAgain = false;
};

/// The clock of everyday use.
[[nodiscard]] std::chrono::milliseconds SteadyNow();

}  // namespace studio
