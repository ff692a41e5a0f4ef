#pragma once

#include <CorvexMaterial/CommandLine.h>

#include <cstdint>
#include <string>

namespace CorvexMaterial {

enum class ShellStatus {
    Ended,  ///< by itself; the returned number is its exit code
    Crashed,
    Cancelled,  ///< by the user, and the program is gone
};

/// Who waits for a raytracer and shows meanwhile how far it is.
class PreviewTarget {
public:
    virtual ~PreviewTarget() = default;
    /// Starts the command line and waits for its end; handles no input but its own Cancel. Returns
    /// the exit code. Errors: what the program's start gives.
    virtual std::int32_t ShellWaitUpdatePreview(const CorvexDB::CommandLine& commandLine,
                                                const std::string& outputBitmap,
                                                ShellStatus& status, std::int32_t width,
                                                std::int32_t height, bool updatePreview,
                                                std::int32_t options) = 0;
    /// What the program of the last wait printed at its end.
    virtual std::string Messages() = 0;
};

}  // namespace CorvexMaterial
