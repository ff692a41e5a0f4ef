#pragma once

#include "Report.h"

#include <QAbstractTableModel>

namespace studio {

/// The rows of a report as a table: its losses, or all of it.
class ReportModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Material, Property, Result, Note, ColumnCount };

    explicit ReportModel(Report report, QObject* parent = nullptr);

    void ShowAll(bool all);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] const std::vector<ReportRow>& Shown() const
    {
        return m_showsAll ? m_report.Rows() : m_losses;
    }

    Report m_report;
    std::vector<ReportRow> m_losses;
    bool m_showsAll = false;
};

}  // namespace studio
