#include "ShapeHiding.h"

#include <QUndoStack>

#include <algorithm>
#include <unordered_set>

namespace studio {
namespace {

struct FlagChange {
    std::shared_ptr<StudioShape> shape;
    ShapeFlags before;
    ShapeFlags after;
};

}  // namespace

class ShapeHiding::Step : public QUndoCommand {
public:
    Step(ShapeHiding& hiding, std::vector<FlagChange> changes, const QString& text)
        : QUndoCommand(text), m_hiding(hiding), m_changes(std::move(changes)),
          m_selected(hiding.m_selection.All())
    {
        std::ranges::copy_if(m_selected, std::back_inserter(m_left),
                             [](const auto& shape) { return !shape->Flags().hidden; });
    }

    void undo() override { Take(&FlagChange::before, m_selected); }
    void redo() override { Take(&FlagChange::after, m_left); }

private:
    void Take(ShapeFlags FlagChange::*flags, const ShapeList& selected)
    {
        for (const FlagChange& change : m_changes) {
            change.shape->SetFlags(change.*flags);
        }
        if (m_left != m_selected) {
            m_hiding.m_selection.Set(selected);
        }
        Q_EMIT m_hiding.Changed();
    }

    ShapeHiding& m_hiding;
    std::vector<FlagChange> m_changes;
    ShapeList m_selected;
    ShapeList m_left;  ///< of these
};

QString ShapeHiding::NameOf(const ShapeList& shapes)
{
    return shapes.size() == 1 ? QString::fromStdString(shapes.front()->Name())
                              : tr("%Ln shape(s)", nullptr, static_cast<int>(shapes.size()));
}

ShapeHiding::ShapeHiding(StudioScene& scene, Selection& selection, QUndoStack& history,
                         QObject* parent)
    : QObject(parent), m_scene(scene), m_selection(selection), m_history(history)
{
}

void ShapeHiding::SetHidden(const ShapeList& shapes, bool hidden)
{
    const QString text =
        hidden ? tr("Hide %1").arg(NameOf(shapes)) : tr("Show %1").arg(NameOf(shapes));
    Change(shapes, text, [hidden](const auto&, ShapeFlags& flags) { flags.hidden = hidden; });
}

void ShapeHiding::SetLocked(const ShapeList& shapes, bool locked)
{
    const QString text =
        locked ? tr("Lock %1").arg(NameOf(shapes)) : tr("Unlock %1").arg(NameOf(shapes));
    Change(shapes, text, [locked](const auto&, ShapeFlags& flags) { flags.locked = locked; });
}

void ShapeHiding::Isolate(const ShapeList& shapes)
{
    const std::unordered_set<std::shared_ptr<StudioShape>> kept(shapes.begin(), shapes.end());
    Change(m_scene.All(), tr("Isolate %1").arg(NameOf(shapes)),
           [&kept](const auto& shape, ShapeFlags& flags) { flags.hidden = !kept.contains(shape); });
}

void ShapeHiding::ShowAll()
{
    Change(m_scene.All(), tr("Show all shapes"),
           [](const auto&, ShapeFlags& flags) { flags.hidden = false; });
}

void ShapeHiding::UnlockAll()
{
    Change(m_scene.All(), tr("Unlock all shapes"),
           [](const auto&, ShapeFlags& flags) { flags.locked = false; });
}

void ShapeHiding::Change(const ShapeList& shapes, const QString& text, const Edit& edit)
{
    std::vector<FlagChange> changes;
    for (const auto& shape : shapes) {
        FlagChange change{shape, shape->Flags(), shape->Flags()};
        edit(shape, change.after);
        if (change.after != change.before) {
            changes.push_back(change);
            shape->SetFlags(change.after);
        }
    }
    if (!changes.empty()) {
        m_history.push(new Step(*this, std::move(changes), text));
    }
}

}  // namespace studio
