#pragma once

#include <QStringList>

namespace studio {

class StudioSettings;

/// The models opened last, newest first, kept in the settings.
class RecentFiles {
public:
    static constexpr int kMost = 8;

    /// The settings outlive this object.
    explicit RecentFiles(StudioSettings& settings) : m_settings(settings) {}

    [[nodiscard]] QStringList Files() const;
    void Add(const QString& file);
    void Remove(const QString& file);
    void Clear();

private:
    StudioSettings& m_settings;
};

}  // namespace studio
