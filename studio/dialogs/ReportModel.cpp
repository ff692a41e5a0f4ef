#include "ReportModel.h"

#include <CorvexMaterial/PlainText.h>

#include <utility>

namespace studio {
namespace {

const std::string& FieldOf(const ReportRow& row, int column)
{
    switch (column) {
    case ReportModel::Material:
        return row.material;
    case ReportModel::Property:
        return row.property;
    default:
        return row.note;
    }
}

}  // namespace

ReportModel::ReportModel(Report report, QObject* parent)
    : QAbstractTableModel(parent), m_report(std::move(report)), m_losses(LossesIn(m_report))
{
}

void ReportModel::ShowAll(bool all)
{
    beginResetModel();
    m_showsAll = all;
    endResetModel();
}

int ReportModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Shown().size());
}

int ReportModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

QVariant ReportModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const ReportRow& row = Shown().at(static_cast<std::size_t>(index.row()));
    const QString text = QString::fromStdString(
        index.column() == Result ? TextOf(row.outcome) : FieldOf(row, index.column()));
    return role == Qt::ToolTipRole ? CorvexMaterial::PlainTip(text) : text;
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QStringList titles{tr("Material"), tr("Property"), tr("What happened"), tr("Why")};
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle ? titles.value(section) : QVariant();
}

}  // namespace studio
