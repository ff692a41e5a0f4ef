#pragma once

#include "Environments.h"
#include "Textures.h"

#include <QString>

namespace media {

/// Writes the images of one texture into a folder. Errors: std::runtime_error that names the file.
void WriteTexture(const TextureRow& row, const QString& folder);
void WriteEnvironment(const EnvironmentRow& row, const QString& folder);

}  // namespace media
