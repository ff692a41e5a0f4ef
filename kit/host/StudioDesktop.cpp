#include "StudioDesktop.h"

#include <CorvexMaterial/Status.h>

namespace studio {

std::optional<std::string> ToldSettings::Read(const CorvexMaterial::SettingAddress& address)
{
    return m_store.Read(address);
}

void ToldSettings::Write(const CorvexMaterial::SettingAddress& address, const std::string& value)
{
    m_store.Write(address, value);
}

void ToldSettings::Flush(const std::string& application)
{
    try {
        m_store.Flush(application);
    } catch (const CorvexMaterial::Error& error) {
        if (m_told.insert(error.what()).second || m_fails == Fails::Always) {
            throw;
        }
    }
}

StudioDesktop::StudioDesktop()
    : m_settings(m_desktop.Get().settings, m_told, ToldSettings::Fails::Once),
      m_ownSettings(m_desktop.Get().settings, m_told, ToldSettings::Fails::Always),
      m_prompts(m_desktop.Get().prompts), m_platform{m_settings,
                                                     m_prompts,
                                                     m_desktop.Get().choosers,
                                                     m_desktop.Get().processes,
                                                     m_desktop.Get().temporaryFiles,
                                                     m_desktop.Get().library,
                                                     m_desktop.Get().imageFormats,
                                                     m_desktop.Get().libraryFiles}
{
}

void StudioDesktop::SetWindow(QWidget* window)
{
    m_desktop.SetDialogParent(window);
    m_prompts.Begin();
}

}  // namespace studio
