#include "StudioSettings.h"

#include "SettingNames.h"
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/SettingsNames.h>

namespace studio {

using CorvexMaterial::kApplicationSection;
using CorvexMaterial::kMaterialPanelKey;

namespace {

constexpr const char* kStudioSection = "Studio";
// Paths may hold any printable character, so a list is separated by one that is not.
constexpr QChar kListSeparator(0x1F);

}  // namespace

StudioSettings::StudioSettings(CorvexMaterial::SettingsStore& store, std::string application)
    : m_store(store), m_application(std::move(application))
{
}

QString StudioSettings::Text(const char* key, const QString& fallback) const
{
    const auto stored = m_store.Read({m_application, kStudioSection, key});
    return stored ? QString::fromStdString(*stored) : fallback;
}

void StudioSettings::SetText(const char* key, const QString& value)
{
    m_store.Write({m_application, kStudioSection, key}, value.toStdString());
}

int StudioSettings::Number(const char* key, int fallback) const
{
    bool isNumber = false;
    const int value = Text(key).toInt(&isNumber);
    return isNumber ? value : fallback;
}

void StudioSettings::SetNumber(const char* key, int value)
{
    SetText(key, QString::number(value));
}

QStringList StudioSettings::List(const char* key, Qt::SplitBehavior entries) const
{
    return Text(key).split(kListSeparator, entries);
}

void StudioSettings::SetList(const char* key, const QStringList& values)
{
    SetText(key, values.join(kListSeparator));
}

CorvexMaterial::Colour StudioSettings::LibraryBackground(const char* key,
                                                         CorvexMaterial::Colour fallback) const
{
    const auto stored = m_store.Read({m_application, kApplicationSection, key});
    bool isNumber = false;
    const int value = QString::fromStdString(stored.value_or("")).toInt(&isNumber);
    return isNumber ? value : fallback;
}

void StudioSettings::SetLibraryBackground(const char* key, CorvexMaterial::Colour colour)
{
    m_store.Write({m_application, kApplicationSection, key}, std::to_string(colour));
}

CorvexMaterial::SettingAddress
StudioSettings::AddressOf(const CorvexMaterial::ProgramFacts& facts) const
{
    if (facts.locationKey.empty()) {
        return {m_application, kStudioSection, kPovRayProgramSetting};
    }
    return {m_application, kApplicationSection, std::string(facts.locationKey)};
}

QString StudioSettings::RaytracerProgram(const CorvexMaterial::ProgramFacts& facts) const
{
    return QString::fromStdString(m_store.Read(AddressOf(facts)).value_or(""));
}

void StudioSettings::SetRaytracerProgram(const CorvexMaterial::ProgramFacts& facts,
                                         const QString& program)
{
    m_store.Write(AddressOf(facts), program.toStdString());
}

std::set<std::string> StudioSettings::SavedPictures() const
{
    const auto& texture = CorvexMaterial::RowOf(CorvexMaterial::Attribute::Texture);
    std::set<std::string> pictures;
    for (const std::string_view key : {texture.currentKey, texture.userKey}) {
        pictures.insert(
            m_store.Read({m_application, kApplicationSection, std::string(key)}).value_or(""));
    }
    return pictures;
}

bool StudioSettings::HasPanelLayout() const
{
    return m_store.Read({m_application, kApplicationSection, kMaterialPanelKey}).has_value();
}

void StudioSettings::Flush()
{
    m_store.Flush(m_application);
}

}  // namespace studio
