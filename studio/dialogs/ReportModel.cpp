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
    : QAbstractTableModel(parent), m_report(std::move(report))
{
    ShowMapped(false);
}

void ReportModel::ShowMapped(bool shown)
{
    beginResetModel();
    m_shown.clear();
    for (std::size_t row = 0; row < m_report.Rows().size(); ++row) {
        if (shown || m_report.Rows()[row].outcome != Outcome::Mapped) {
            m_shown.push_back(row);
        }
    }
    endResetModel();
}

int ReportModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
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
    const std::size_t shown = m_shown.at(static_cast<std::size_t>(index.row()));
    const ReportRow& row = m_report.Rows().at(shown);
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
