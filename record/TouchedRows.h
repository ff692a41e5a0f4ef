#pragma once

#include <CorvexMaterial/MaterialEdit.h>
#include <CorvexMaterial/MaterialRecord.h>
#include <CorvexMaterial/Schema.h>

#include <span>

namespace CorvexMaterial {

/// An attribute that the user has touched, or one element of it.
struct TouchedRow {
    Attribute attribute{};
    std::size_t element = 0;

    bool operator==(const TouchedRow&) const = default;
    auto operator<=>(const TouchedRow&) const = default;
};
using TouchedRows = std::vector<TouchedRow>;

/// These attributes with all of their elements.
[[nodiscard]] TouchedRows RowsOf(std::span<const Attribute> attributes);
/// Those of the group.
[[nodiscard]] TouchedRows RowsOf(AttributeGroup group);
/// Everything that a material consists of.
[[nodiscard]] TouchedRows RowsOfMaterial();
/// Those that differ.
[[nodiscard]] TouchedRows RowsThatDiffer(const CorvexDB::udtMaterial& one,
                                         const CorvexDB::udtMaterial& other);

/// Collects what the user touches until the host can be told.
class PendingEdit {
public:
    void Touch(const TouchedRows& rows);
    /// Another material in the place of what was there, with the name that it has elsewhere.
    void TouchWhole(TouchedRows rows, std::string name = {});
    void Forget();
    [[nodiscard]] bool IsEmpty() const { return m_rows.empty(); }
    /// The rows with their values. What is pending stays so.
    [[nodiscard]] MaterialEdit WithValues(const CorvexDB::udtMaterial& record,
                                          CorvexDB::ApplyMode mode) const;

private:
    TouchedRows m_rows;
    bool m_isWhole = false;
    std::string m_name;
};

}  // namespace CorvexMaterial
