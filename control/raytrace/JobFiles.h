#pragma once

#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/Files.h>

#include <functional>
#include <string>

namespace CorvexMaterial {

enum class AfterJob { DeleteBitmap, KeepBitmap };

/// The temporary files of one raytracer job, all of one number; gone with this object.
class JobFiles {
public:
    /// Claims the scene file. Errors: FileFailed.
    JobFiles(TemporaryFiles& files, CorvexDB::Diagnostics& diagnostics,
             const std::string& sceneExtension, AfterJob afterJob);
    ~JobFiles();
    JobFiles(const JobFiles&) = delete;
    JobFiles& operator=(const JobFiles&) = delete;

    [[nodiscard]] const std::string& Scene() const { return m_scene; }
    [[nodiscard]] std::string Ini() const;
    [[nodiscard]] std::string Bitmap() const;

private:
    [[nodiscard]] std::string WithExtension(const char* extension) const;
    void Remove(const std::string& path) const noexcept;

    TemporaryFiles& m_files;
    CorvexDB::Diagnostics& m_diagnostics;
    AfterJob m_afterJob;
    std::string m_scene;
};

/// For a clean-up, where a failure is worth a line of trace and no more.
void RemoveQuietly(TemporaryFiles& files, CorvexDB::Diagnostics& diagnostics,
                   const std::string& path) noexcept;
void CleanUpQuietly(CorvexDB::Diagnostics& diagnostics, const std::string& failure,
                    const std::function<void()>& body) noexcept;

}  // namespace CorvexMaterial
