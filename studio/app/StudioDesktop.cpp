#include "studio/app/StudioDesktop.h"

#include "host/Status.h"

namespace studio {

std::optional<std::string> OnceFailingSettings::Read(const CorvexMaterial::SettingAddress& address)
{
    return m_store.Read(address);
}

void OnceFailingSettings::Write(const CorvexMaterial::SettingAddress& address,
                                const std::string& value)
{
    m_store.Write(address, value);
}

void OnceFailingSettings::Flush(const std::string& application)
{
    try {
        m_store.Flush(application);
    } catch (const CorvexMaterial::Error& error) {
        if (m_told.insert(error.what()).second) {
            throw;
        }
    }
}

StudioDesktop::StudioDesktop()
    : m_settings(m_desktop.Get().settings),
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
