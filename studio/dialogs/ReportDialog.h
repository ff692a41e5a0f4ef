#pragma once

#include "Report.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ReportDialog;
}

namespace studio {

class ReportModel;

/// Shows what became of each property of imported or exported materials.
class ReportDialog : public QDialog {
    Q_OBJECT

public:
    ReportDialog(const QString& title, const QString& summary, const Report& report,
                 QWidget* parent = nullptr);
    ~ReportDialog() override;

private:
    void FitColumns();

    std::unique_ptr<Ui::ReportDialog> m_ui;
    ReportModel* m_model;
};

}  // namespace studio
