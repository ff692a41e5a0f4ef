#pragma once

#include <QString>

#include <string>

namespace studio {

/// Where one run of the studio keeps its things. A recorded tour and the tests bring their own, so
/// that the user's settings and logs stay untouched.
struct StudioProfile {
    std::string settingsApplication;  ///< names the settings of studio and control alike
    QString dataFolder;               ///< libraries
    QString stateFolder;              ///< event log and trace
    QString cacheFolder;              ///< what can be made again, such as pictures out of documents
};

inline constexpr const char* kStudioName = "CorvexStudio";

/// Holds the user's favourites and ratings of library entries.
[[nodiscard]] std::string MarksFile(const StudioProfile& profile);

/// The profile of the user who runs the program.
[[nodiscard]] StudioProfile UserProfile();
/// Everything below one folder.
[[nodiscard]] StudioProfile ProfileIn(const QString& folder);

}  // namespace studio
