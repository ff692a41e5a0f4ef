#pragma once

#include "TouchedRows.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

namespace CorvexMaterial {

/// Marks the controls of the attributes in which several shapes differ.
class DifferenceMarks {
public:
    using Controls = std::vector<QWidget*>;
    using ControlsOf = std::function<Controls(const TouchedRow&)>;

    /// A row may have several controls, and a control be that of several rows. The first of them
    /// that is a list, or the group of buttons that they are, names the row's positions.
    explicit DifferenceMarks(ControlsOf controlsOf) : m_controlsOf(std::move(controlsOf)) {}

    [[nodiscard]] const std::vector<DifferingRow>& Rows() const { return m_rows; }
    /// In the place of those shown before.
    void Show(std::vector<DifferingRow> rows);
    /// False when there was no mark of any of the edited rows.
    bool Take(const std::vector<EditedRow>& edited);
    /// Of every row that the attribute's controls stand for.
    void TakeFromControlsOf(Attribute attribute);

private:
    void ShowRows();

    ControlsOf m_controlsOf;
    std::vector<DifferingRow> m_rows;
    std::vector<QPointer<QWidget>> m_marked;
};

}  // namespace CorvexMaterial
