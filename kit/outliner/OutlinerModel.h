#pragma once

#include "OutlinerRows.h"

#include <QAbstractItemModel>

#include <functional>
#include <unordered_map>

class QMimeData;

namespace studio {

/// Of a material that is linked to a library.
struct LinkMark {
    bool isLinked = false;
    bool isStale = false;  ///< the library has another one, or none any more
    QString text{};        ///< for a person
};

/// The shapes of a scene, or its materials with the shapes below them.
class OutlinerModel : public QAbstractItemModel {
    Q_OBJECT

public:
    enum class Mode { Shapes, Materials };
    /// The second one has a shape's material, or how many shapes a material has.
    enum Column { kName, kMaterial, kEye, kLock, kColumns };

    /// What a drag of rows carries beside what other programs understand.
    static constexpr const char* kShapesFormat = "application/x-corvex-shapes";

    using QAbstractItemModel::QAbstractItemModel;

    using LinkTexts = std::function<LinkMark(const StudioShape&)>;
    void SetLinkTexts(LinkTexts texts) { m_linkTexts = std::move(texts); }
    /// Of the material that is shown there.
    [[nodiscard]] LinkMark LinkAt(const QModelIndex& index) const;

    [[nodiscard]] Mode Listed() const { return m_mode; }
    void SetMode(Mode mode);
    void SetSearch(const QString& search);
    /// Shows what the shapes are like now. Where the rows are the same, they stay.
    void Show(const ShapeList& scene);
    /// Nothing is listed any more.
    void Clear() { Show({}); }

    [[nodiscard]] bool IsMaterial(const QModelIndex& index) const;
    /// That the row stands for: the shape, or all that have the material.
    [[nodiscard]] ShapeList ShapesOf(const QModelIndex& index) const;
    /// Those of the row that the search leaves.
    [[nodiscard]] ShapeList ShownOf(const QModelIndex& index) const;
    /// Where it stands; invalid where it is not listed.
    [[nodiscard]] QModelIndex IndexOf(const StudioShape& shape) const;
    /// Whose name stands there; null for rows without.
    [[nodiscard]] const OutlinerMaterial* MaterialAt(const QModelIndex& index) const;
    /// Whether a material is shown there; null where none is.
    [[nodiscard]] const AppliedMaterial* Swatch(const QModelIndex& index) const;
    [[nodiscard]] std::size_t ShapeCount() const { return m_rows.shapes.size(); }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    void sort(int column, Qt::SortOrder order) override;

Q_SIGNALS:
    /// The user typed it.
    void RenameWanted(const studio::ShapeList& wearers, const QString& name);

private:
    struct Place {
        int row = -1;
        int material = -1;  ///< above it, where materials are listed
    };

    void Take(OutlinerRows rows);
    void Rearrange();
    [[nodiscard]] const OutlinerMaterial& Material(int row) const
    {
        return m_rows.materials[static_cast<std::size_t>(row)];
    }
    [[nodiscard]] QVariant TextAt(const QModelIndex& index) const;
    [[nodiscard]] QString ToolTipAt(const QModelIndex& index) const;
    [[nodiscard]] QString FlagText(const QModelIndex& index) const;

    LinkTexts m_linkTexts;
    Mode m_mode = Mode::Shapes;
    QString m_search;
    OutlinerOrder m_order = OutlinerOrder::Scene;
    Qt::SortOrder m_direction = Qt::AscendingOrder;
    ShapeList m_scene;
    OutlinerRows m_rows;
    std::unordered_map<const StudioShape*, Place> m_places;
};

}  // namespace studio
