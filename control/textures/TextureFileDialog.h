#pragma once

#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/Platform.h>
#include <CorvexMaterial/TextureFileTypes.h>

#include <optional>
#include <string>

class QWidget;

namespace CorvexMaterial {

/// Asks for a texture's file and checks what comes back.
class TextureFileDialog {
public:
    TextureFileDialog(Host& host, Platform& platform, QWidget* parent);

    /// Path of a usable file, or empty. The dialog starts in the folder of the file used now.
    [[nodiscard]] std::string SelectTextureFile(TextureTypeList list,
                                                const std::string& applicationName,
                                                const std::string& presentFile);
    /// Whether a file that was chosen otherwise is usable; the user is told when it is not.
    [[nodiscard]] bool Accepts(const std::string& file, TextureTypeList list,
                               const std::string& applicationName);

private:
    [[nodiscard]] std::optional<std::string> ShowFileOpenDialog(std::string_view description,
                                                                TextureTypeList list,
                                                                const std::string& startFolder);
    [[nodiscard]] bool IsOfListedType(const std::string& file, TextureTypeList list);
    [[nodiscard]] bool TiffIsReadable(const std::string& applicationName);
    void Refuse(std::string_view text);

    Host& m_host;
    Platform& m_platform;
    QWidget* m_parent;
};

}  // namespace CorvexMaterial
