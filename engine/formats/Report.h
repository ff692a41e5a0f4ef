#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace studio {

/// What becomes of a property on its way into another format or out of it.
enum class Outcome : std::uint8_t {
    Mapped,        ///< means the same there
    Approximated,  ///< comes close; the note says what differs
    Dropped,       ///< is left out; the note says why
};
inline constexpr std::size_t kOutcomeCount = 3;

struct ReportRow {
    std::string material;
    std::string property;  ///< of a material on export, in the file's own words on import
    Outcome outcome = Outcome::Mapped;
    std::string note;  ///< for a person; may be empty for what is mapped
    /// What notes have in common that say the same of different things, with "..." for these; empty
    /// where that is the note.
    std::string kind = {};
};

/// What happened to each property of each material of one import or export, in file order.
class Report {
public:
    void Add(ReportRow row);

    [[nodiscard]] const std::vector<ReportRow>& Rows() const { return m_rows; }
    [[nodiscard]] std::size_t Count(Outcome outcome) const
    {
        return m_counts[static_cast<std::size_t>(outcome)];
    }

private:
    std::vector<ReportRow> m_rows;
    std::array<std::size_t, kOutcomeCount> m_counts{};
};

/// What was not mapped. Of rows that differ in nothing but their material and what their note names
/// only the first few, and then one that counts the others.
[[nodiscard]] std::vector<ReportRow> LossesIn(const Report& report);

/// The rows of one material.
class MaterialNotes {
public:
    /// The report outlives this.
    MaterialNotes(Report& report, std::string material);

    void Mapped(const std::string& property, const char* note = "");
    void Approximated(const std::string& property, const char* note);
    void Dropped(const std::string& property, const char* note);
    /// Notes are marked with QT_TRANSLATE_NOOP("Interchange", ...) and translated here.
    /// A detail goes where the note has "%1".
    void Add(const std::string& property, Outcome outcome, const char* note,
             const std::string& detail = {});

private:
    Report& m_report;
    std::string m_material;
};

/// "mapped", "approximated" or "dropped", for a person.
[[nodiscard]] std::string TextOf(Outcome outcome);

}  // namespace studio
