#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <QWidget>

#include <array>
#include <string>
#include <vector>

class QGridLayout;
class QLineEdit;

namespace CorvexMaterial {

class ElidedLabel;

/// One text per custom field that the host defines.
class CustomFieldsPanel : public QWidget {
    Q_OBJECT

public:
    using Values = std::array<std::string, CorvexDB::kCustomFieldCount>;

    explicit CustomFieldsPanel(QWidget* parent);

    /// Shows a row per name that is not empty; names beyond six are ignored. Values stay, those of
    /// rows that are hidden now included.
    void ShowNames(const std::vector<std::string>& names);

    /// None beyond the last one.
    [[nodiscard]] std::vector<QWidget*> Field(std::size_t field) const;
    [[nodiscard]] Values Texts() const;
    /// Without an `Edited`.
    void ShowTexts(const Values& texts);

Q_SIGNALS:
    void Edited(std::size_t field);

private:
    QGridLayout* m_grid;
    std::array<ElidedLabel*, CorvexDB::kCustomFieldCount> m_names{};
    std::array<QLineEdit*, CorvexDB::kCustomFieldCount> m_values{};
};

}  // namespace CorvexMaterial
