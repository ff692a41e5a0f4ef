#pragma once

#include <QString>

namespace studio {

/// For QTemporaryDir: a folder of this process among the temporary files, named after its purpose,
/// small letters alone. Folders of that purpose whose process was killed are removed first.
[[nodiscard]] QString TemporaryFolderFor(const QString& purpose);

}  // namespace studio
