#include "OutlinerModel.h"

#include <CorvexMaterial/PlainText.h>

#include <QFont>
#include <QLocale>

#include <algorithm>

namespace studio {
namespace {

/// The ids of rows at the top; those below a material have its row.
constexpr quintptr kTop = ~quintptr{0};

}  // namespace

void OutlinerModel::SetMode(Mode mode)
{
    if (mode != m_mode) {
        beginResetModel();
        m_mode = mode;
        Take(RowsOf(m_scene, m_search, m_order, m_direction));
        endResetModel();
    }
}

void OutlinerModel::SetSearch(const QString& search)
{
    if (search != m_search) {
        m_search = search;
        Rearrange();
    }
}

void OutlinerModel::sort(int column, Qt::SortOrder order)
{
    m_order = OutlinerOrder::Scene;
    if (column == kName) {
        m_order = OutlinerOrder::ByShape;
    } else if (column == kMaterial) {
        m_order = OutlinerOrder::ByMaterial;
    }
    m_direction = order;
    Rearrange();
}

void OutlinerModel::Show(const ShapeList& scene)
{
    m_scene = scene;
    Rearrange();
}

void OutlinerModel::Rearrange()
{
    OutlinerRows rows = RowsOf(m_scene, m_search, m_order, m_direction);
    if (HaveSameRows(rows, m_rows)) {
        m_rows = std::move(rows);
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
        return;
    }
    beginResetModel();
    Take(std::move(rows));
    endResetModel();
}

void OutlinerModel::Take(OutlinerRows rows)
{
    m_rows = std::move(rows);
    m_places.clear();
    if (m_mode == Mode::Shapes) {
        for (std::size_t row = 0; row < m_rows.shapes.size(); ++row) {
            m_places[m_rows.shapes[row].get()] = {static_cast<int>(row), -1};
        }
        return;
    }
    for (std::size_t material = 0; material < m_rows.shownMaterials; ++material) {
        const ShapeList& shown = m_rows.materials[material].shown;
        for (std::size_t row = 0; row < shown.size(); ++row) {
            m_places[shown[row].get()] = {static_cast<int>(row), static_cast<int>(material)};
        }
    }
}

QModelIndex OutlinerModel::index(int row, int column, const QModelIndex& parent) const
{
    const bool isThere =
        row >= 0 && row < rowCount(parent) && column >= 0 && column < columnCount(parent);
    if (!isThere) {
        return {};
    }
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) : kTop);
}

QModelIndex OutlinerModel::parent(const QModelIndex& child) const
{
    return !child.isValid() || child.internalId() == kTop
               ? QModelIndex()
               : createIndex(static_cast<int>(child.internalId()), 0, kTop);
}

int OutlinerModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) {
        return static_cast<int>(m_mode == Mode::Shapes ? m_rows.shapes.size()
                                                       : m_rows.shownMaterials);
    }
    return IsMaterial(parent) && parent.column() == 0
               ? static_cast<int>(Material(parent.row()).shown.size())
               : 0;
}

int OutlinerModel::columnCount(const QModelIndex& /*parent*/) const
{
    return kColumns;
}

bool OutlinerModel::IsMaterial(const QModelIndex& index) const
{
    return index.isValid() && m_mode == Mode::Materials && index.internalId() == kTop;
}

ShapeList OutlinerModel::ShownOf(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return {};
    }
    if (m_mode == Mode::Shapes) {
        return {m_rows.shapes[static_cast<std::size_t>(index.row())]};
    }
    if (IsMaterial(index)) {
        return Material(index.row()).shown;
    }
    return {Material(static_cast<int>(index.internalId()))
                .shown[static_cast<std::size_t>(index.row())]};
}

ShapeList OutlinerModel::ShapesOf(const QModelIndex& index) const
{
    return IsMaterial(index) ? Material(index.row()).wearers : ShownOf(index);
}

QModelIndex OutlinerModel::IndexOf(const StudioShape& shape) const
{
    const auto found = m_places.find(&shape);
    if (found == m_places.end()) {
        return {};
    }
    const Place& place = found->second;
    return createIndex(place.row, 0,
                       place.material < 0 ? kTop : static_cast<quintptr>(place.material));
}

const OutlinerMaterial* OutlinerModel::MaterialAt(const QModelIndex& index) const
{
    if (m_mode == Mode::Shapes && index.isValid()) {
        return &m_rows.materials[m_rows.materialOf[static_cast<std::size_t>(index.row())]];
    }
    return IsMaterial(index) ? &Material(index.row()) : nullptr;
}

const AppliedMaterial* OutlinerModel::Swatch(const QModelIndex& index) const
{
    const int column = m_mode == Mode::Shapes ? kMaterial : kName;
    const OutlinerMaterial* material = index.column() == column ? MaterialAt(index) : nullptr;
    return material == nullptr ? nullptr : &material->wearers.front()->Applied();
}

LinkMark OutlinerModel::LinkAt(const QModelIndex& index) const
{
    return Swatch(index) == nullptr || !m_linkTexts
               ? LinkMark()
               : m_linkTexts(*MaterialAt(index)->wearers.front());
}

QVariant OutlinerModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return TextAt(index);
    case Qt::ToolTipRole:
        return ToolTipAt(index);
    case Qt::AccessibleTextRole:
        return index.column() >= kEye ? QVariant(FlagText(index)) : TextAt(index);
    case Qt::TextAlignmentRole:
        return index.column() == kMaterial && m_mode == Mode::Materials
                   ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                   : QVariant();
    case Qt::FontRole:
        if (const OutlinerMaterial* material = MaterialAt(index);
            Swatch(index) != nullptr && !material->isNamed) {
            QFont font;
            font.setItalic(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant OutlinerModel::TextAt(const QModelIndex& index) const
{
    if (Swatch(index) != nullptr) {
        return MaterialAt(index)->name;
    }
    if (index.column() == kName) {
        return QString::fromStdString(ShownOf(index).front()->Name());
    }
    if (index.column() == kMaterial && IsMaterial(index)) {
        return QLocale().toString(static_cast<qulonglong>(Material(index.row()).wearers.size()));
    }
    return {};
}

QString OutlinerModel::FlagText(const QModelIndex& index) const
{
    const ShapeList shapes = ShapesOf(index);
    if (index.column() == kEye) {
        const bool hidden =
            std::ranges::all_of(shapes, [](const auto& shape) { return shape->Flags().hidden; });
        return hidden ? tr("Hidden") : tr("Shown");
    }
    const bool locked =
        std::ranges::all_of(shapes, [](const auto& shape) { return shape->Flags().locked; });
    return locked ? tr("Locked") : tr("Not locked");
}

QString OutlinerModel::ToolTipAt(const QModelIndex& index) const
{
    if (index.column() == kEye) {
        return tr("%1. Click to hide or show it (Space).").arg(FlagText(index));
    }
    if (index.column() == kLock) {
        return tr("%1. Click to keep it from being clicked in the view (Shift+Space).")
            .arg(FlagText(index));
    }
    QString text = TextAt(index).toString();
    if (Swatch(index) != nullptr) {
        text =
            tr("%1, on %Ln shape(s)", nullptr, static_cast<int>(MaterialAt(index)->wearers.size()))
                .arg(text);
    }
    if (const LinkMark link = LinkAt(index); link.isLinked) {
        text += QStringLiteral("\n") + link.text;
    }
    return CorvexMaterial::PlainTip(text);
}

bool OutlinerModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const OutlinerMaterial* material = MaterialAt(index);
    const QString name = value.toString().trimmed();
    if (role != Qt::EditRole || material == nullptr || name.isEmpty() || name == material->name) {
        return false;
    }
    Q_EMIT RenameWanted(material->wearers, name);
    return true;
}

QVariant OutlinerModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    const bool byShape = m_mode == Mode::Shapes;
    if (role == Qt::DisplayRole && section < kEye) {
        return section == kName ? (byShape ? tr("Shape") : tr("Material"))
                                : (byShape ? tr("Material") : tr("Shapes"));
    }
    if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) {
        switch (section) {
        case kEye:
            return tr("Hidden shapes are neither drawn nor rendered");
        case kLock:
            return tr("Locked shapes cannot be clicked in the view");
        default:
            return tr("Click to sort; a third click brings the order of the scene back");
        }
    }
    return {};
}

Qt::ItemFlags OutlinerModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled;
    }
    Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    flags.setFlag(Qt::ItemIsEditable, Swatch(index) != nullptr);
    return flags;
}

}  // namespace studio
