#include "OutlinerSelection.h"

#include "OutlinerModel.h"
#include "OutlinerView.h"
#include "Selection.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <map>

namespace studio {
namespace {

/// Rows of one parent become few ranges.
class Ranges {
public:
    explicit Ranges(const OutlinerModel& model) : m_model(model) {}

    void Add(const QModelIndex& index) { m_rows[index.parent()].push_back(index.row()); }

    [[nodiscard]] QItemSelection Selection()
    {
        QItemSelection selection;
        for (auto& [parent, rows] : m_rows) {
            std::ranges::sort(rows);
            for (std::size_t first = 0; first < rows.size();) {
                std::size_t last = first;
                while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) {
                    ++last;
                }
                selection.append(QItemSelectionRange(
                    m_model.index(rows[first], 0, parent),
                    m_model.index(rows[last], OutlinerModel::kColumns - 1, parent)));
                first = last + 1;
            }
        }
        return selection;
    }

private:
    const OutlinerModel& m_model;
    std::map<QModelIndex, std::vector<int>> m_rows;
};

}  // namespace

OutlinerSelection::OutlinerSelection(OutlinerModel& model, OutlinerView& view, Selection& selection)
    : QObject(&view), m_model(model), m_view(view), m_selection(selection)
{
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &OutlinerSelection::TakeFromView);
    connect(&selection, &Selection::Changed, this, &OutlinerSelection::Mark);
    connect(&model, &QAbstractItemModel::modelReset, this, &OutlinerSelection::Mark);
}

void OutlinerSelection::TakeFromView(const QItemSelection& /*selected*/,
                                     const QItemSelection& deselected)
{
    if (m_isMarking) {
        return;
    }
    std::unordered_set<std::shared_ptr<StudioShape>> wanted;
    const QItemSelection now = m_view.selectionModel()->selection();
    const QModelIndex current = m_view.currentIndex().siblingAtColumn(0);
    const bool isTakenOut = current.isValid() && deselected.contains(current);
    for (const QItemSelectionRange& range : now) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const QModelIndex index = m_model.index(row, 0, range.parent());
            // A material is still marked when one of its shapes is taken out.
            if (!isTakenOut || current.parent() != index) {
                const ShapeList shapes = m_model.ShapesOf(index);
                wanted.insert(shapes.begin(), shapes.end());
            }
        }
    }
    // And its shapes when it is taken out itself.
    if (isTakenOut && m_model.IsMaterial(current)) {
        for (const auto& shape : m_model.ShapesOf(current)) {
            wanted.erase(shape);
        }
    }
    ShapeList shapes;
    for (const auto& shape : m_selection.All()) {
        if (wanted.erase(shape) > 0) {
            shapes.push_back(shape);
        }
    }
    // New ones in the order of the list, the one that was pointed at last.
    const ShapeList pointed = m_model.ShownOf(current);
    const std::shared_ptr<StudioShape> lead =
        pointed.size() == 1 && wanted.erase(pointed.front()) > 0 ? pointed.front() : nullptr;
    for (const auto& shape : m_view.SelectedShapes()) {
        if (wanted.erase(shape) > 0) {
            shapes.push_back(shape);
        }
    }
    if (lead != nullptr) {
        shapes.push_back(lead);
    }
    {
        const QScopedValueRollback taking(m_isTaking, true);
        m_selection.Set(shapes);
    }
    Mark();
}

void OutlinerSelection::Mark()
{
    const QScopedValueRollback marking(m_isMarking, true);
    Ranges ranges(m_model);
    std::unordered_set<int> materials;
    for (const auto& shape : m_selection.All()) {
        const QModelIndex index = m_model.IndexOf(*shape);
        if (!index.isValid()) {
            continue;
        }
        ranges.Add(index);
        const QModelIndex material = index.parent();
        if (material.isValid() && materials.insert(material.row()).second &&
            std::ranges::all_of(m_model.ShapesOf(material),
                                [this](const auto& each) { return m_selection.Contains(*each); })) {
            ranges.Add(material);
        }
    }
    m_view.selectionModel()->select(ranges.Selection(), QItemSelectionModel::ClearAndSelect);
    const auto lead = m_selection.Latest();
    if (m_isTaking || lead == nullptr) {
        return;
    }
    QModelIndex index = m_model.IndexOf(*lead);
    if (index.parent().isValid() && !m_view.isExpanded(index.parent())) {
        index = index.parent();
    }
    if (index.isValid() && m_view.currentIndex().siblingAtColumn(0) != index) {
        m_view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        m_view.scrollTo(index);
    }
}

}  // namespace studio
