#pragma once

#include "FaultList.h"

#include <optional>

namespace faults {

/// Runs suites of a seeded copy that is built.
class FaultTrial {
public:
    explicit FaultTrial(QString build) : m_build(std::move(build)) {}

    /// The first suite that fails with this fault, none where all pass; number 0 is no fault.
    [[nodiscard]] std::optional<QString> Caught(int number, const QStringList& suites) const;

private:
    [[nodiscard]] bool Passes(int number, const QString& suite) const;

    QString m_build;
};

}  // namespace faults
