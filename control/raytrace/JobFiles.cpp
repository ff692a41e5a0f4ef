#include "JobFiles.h"

namespace CorvexMaterial {

JobFiles::JobFiles(TemporaryFiles& files, CorvexDB::Diagnostics& diagnostics,
                   const std::string& sceneExtension, AfterJob afterJob)
    : m_files(files), m_diagnostics(diagnostics), m_afterJob(afterJob),
      m_scene(files.Claim(sceneExtension))
{
}

JobFiles::~JobFiles()
{
    Remove(m_scene);
    Remove(Ini());
    // What POV-Ray leaves beside its image when it is stopped.
    Remove(WithExtension("pov-state"));
    if (m_afterJob == AfterJob::DeleteBitmap) {
        Remove(Bitmap());
    }
}

std::string JobFiles::Ini() const
{
    return WithExtension("ini");
}

std::string JobFiles::Bitmap() const
{
    return WithExtension("bmp");
}

std::string JobFiles::WithExtension(const char* extension) const
{
    return m_scene.substr(0, m_scene.find_last_of('.') + 1) + extension;
}

void JobFiles::Remove(const std::string& path) const noexcept
{
    RemoveQuietly(m_files, m_diagnostics, path);
}

void RemoveQuietly(TemporaryFiles& files, CorvexDB::Diagnostics& diagnostics,
                   const std::string& path) noexcept
{
    CleanUpQuietly(diagnostics, "a temporary file is left: " + path, [&] { files.Remove(path); });
}

void CleanUpQuietly(CorvexDB::Diagnostics& diagnostics, const std::string& failure,
                    const std::function<void()>& body) noexcept
{
    try {
        body();
    } catch (...) {
        try {
            diagnostics.DebugTrace(failure);
        } catch (...) {
            // Nothing is left to be done about a file that is merely in the way.
            return;
        }
    }
}

}  // namespace CorvexMaterial
