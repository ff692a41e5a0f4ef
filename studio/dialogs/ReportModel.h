#pragma once

#include "Report.h"

#include <QAbstractTableModel>

namespace studio {

/// The rows of a report as a table; however many there are, they are not copied.
class ReportModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Material, Property, Result, Note, ColumnCount };

    explicit ReportModel(Report report, QObject* parent = nullptr);

    void ShowMapped(bool shown);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    Report m_report;
    std::vector<std::size_t> m_shown;
};

}  // namespace studio
