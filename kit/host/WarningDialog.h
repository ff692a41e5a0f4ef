#pragma once

#include <QDialog>

class QCheckBox;

namespace studio {

/// One warning with its choice whether to receive it again.
class WarningDialog : public QDialog {
    Q_OBJECT

public:
    WarningDialog(const QString& warning, QWidget* parent);
    [[nodiscard]] bool ContinueToReceive() const;

private:
    QCheckBox* m_continue;
};

}  // namespace studio
