#pragma once

#include <QString>

#include <optional>

namespace studio {

struct TourRequest {
    QString folder;   ///< for the pictures; created when needed
    QString chapter;  ///< a name of one chapter, empty = all
    QString model;    ///< shown at the end, may be empty
};

/// Drives the real window through what a user does and keeps pictures of it. Settings, logs and
/// models lie in a temporary folder. Returns the first step that did not do what it should.
[[nodiscard]] std::optional<QString> RecordTour(const TourRequest& request);

}  // namespace studio
