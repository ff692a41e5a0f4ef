#pragma once

#include "Raytracers.h"
#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/SettingsStore.h>

#include <QString>
#include <QStringList>

#include <set>
#include <string>

namespace studio {

/// The studio's own settings, in the store that the control uses too but in a section of their own.
class StudioSettings {
public:
    /// The store outlives this object.
    StudioSettings(CorvexMaterial::SettingsStore& store, std::string application);

    [[nodiscard]] const std::string& Application() const { return m_application; }

    [[nodiscard]] QString Text(const char* key, const QString& fallback = {}) const;
    void SetText(const char* key, const QString& value);
    /// Text that is no whole number counts as missing.
    [[nodiscard]] int Number(const char* key, int fallback) const;
    void SetNumber(const char* key, int value);
    /// Without its empty entries, unless their places matter.
    [[nodiscard]] QStringList List(const char* key,
                                   Qt::SplitBehavior entries = Qt::SkipEmptyParts) const;
    void SetList(const char* key, const QStringList& values);

    /// Background colours of the library browsers, which the control reads and never writes.
    [[nodiscard]] CorvexMaterial::Colour LibraryBackground(const char* key,
                                                           CorvexMaterial::Colour fallback) const;
    void SetLibraryBackground(const char* key, CorvexMaterial::Colour colour);

    /// The program that the user has chosen for a raytracer, be it kept by the control or by the
    /// studio; empty when he has not.
    [[nodiscard]] QString RaytracerProgram(const CorvexMaterial::ProgramFacts& facts) const;
    void SetRaytracerProgram(const CorvexMaterial::ProgramFacts& facts, const QString& program);

    /// The primary textures of the material that the control comes back with and of the user's
    /// defaults.
    [[nodiscard]] std::set<std::string> SavedPictures() const;

    /// Whether the control has ever saved its layout.
    [[nodiscard]] bool HasPanelLayout() const;

    /// Puts everything on disk. Errors: FileFailed, naming the file.
    void Flush();

private:
    [[nodiscard]] CorvexMaterial::SettingAddress
    AddressOf(const CorvexMaterial::ProgramFacts& facts) const;

    CorvexMaterial::SettingsStore& m_store;
    std::string m_application;
};

}  // namespace studio
