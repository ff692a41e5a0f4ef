#pragma once

#include "Interchange.h"
#include "Testing.h"

namespace CorvexTest {

[[nodiscard]] studio::ImportProgram MaterialImporter();
[[nodiscard]] std::string SampleFile(const char* name);

/// What one way through a format gives.
struct Imported {
    std::vector<studio::NamedMaterial> materials;
    studio::Report report;
};
[[nodiscard]] Imported Import(const std::string& path, const std::string& pictureFolder = {});

/// The row of the material and property; nothing when there is none.
[[nodiscard]] std::optional<studio::ReportRow>
RowFor(const studio::Report& report, const std::string& material, const std::string& property);

/// "mapped", "approximated", "dropped" or "-" when there is no such row.
[[nodiscard]] std::string OutcomeFor(const studio::Report& report, const std::string& material,
                                     const std::string& property);

}  // namespace CorvexTest
