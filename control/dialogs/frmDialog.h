#pragma once

#include "modDialog.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmDialog;
}

namespace CorvexMaterial {

/// One warning with the choice to go on receiving it.
class frmDialog : public QDialog {
    Q_OBJECT

public:
    frmDialog(SettingsStore& settings, CorvexDB::Diagnostics& diagnostics, WarningRequest request,
              QWidget* parent);
    ~frmDialog() override;

    /// Stores the choice, however the dialog was closed.
    void Unload();

private:
    SettingsStore& m_settings;
    CorvexDB::Diagnostics& m_diagnostics;
    WarningRequest m_request;
    std::unique_ptr<Ui::frmDialog> m_ui;
};

}  // namespace CorvexMaterial
