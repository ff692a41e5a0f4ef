#include "TextureFileDialog.h"

#include "ErrorTexts.h"
#include "FileFilter.h"
#include "TextureMessages.h"
#include "modDialog.h"
#include <CorvexMaterial/WarningCatalogue.h>

#include <QCoreApplication>
#include <QFileInfo>

namespace CorvexMaterial {

TextureFileDialog::TextureFileDialog(Host& host, Platform& platform, QWidget* parent)
    : m_host(host), m_platform(platform), m_parent(parent)
{
}

std::string TextureFileDialog::SelectTextureFile(TextureTypeList list,
                                                 const std::string& applicationName,
                                                 const std::string& presentFile)
{
    const QFileInfo present(QString::fromStdString(presentFile));
    const auto file =
        ShowFileOpenDialog(kTextureDescription, list,
                           presentFile.empty() ? std::string() : present.path().toStdString());
    return file && Accepts(*file, list, applicationName) ? *file : std::string();
}

bool TextureFileDialog::Accepts(const std::string& file, TextureTypeList list,
                                const std::string& applicationName)
{
    return IsOfListedType(file, list) &&
           (UpperExtensionOf(file) != kTiffExtension || TiffIsReadable(applicationName));
}

std::optional<std::string> TextureFileDialog::ShowFileOpenDialog(std::string_view description,
                                                                 TextureTypeList list,
                                                                 const std::string& startFolder)
{
    FilterParts filter = SplitDialogFilter(DialogFilter(description, ExtensionsOf(list)));
    FileRequest request;
    request.title =
        QCoreApplication::translate("TextureFileDialog", "Select Texture").toStdString();
    request.description = std::move(filter.description);
    request.extensions = std::move(filter.extensions);
    request.startFolder = startFolder;
    return m_platform.choosers.ChooseFile(request);
}

bool TextureFileDialog::IsOfListedType(const std::string& file, TextureTypeList list)
{
    const bool listed = IsListed(file, list);
    if (!listed) {
        Refuse(kWrongFileType);
    }
    return listed;
}

bool TextureFileDialog::TiffIsReadable(const std::string& applicationName)
{
    const WarningRow& warning = RowOf(WarningId::MaterialTif);
    modDialog(m_platform.settings, m_platform.prompts, m_host.diagnostics, m_parent)
        .ShowWarning({applicationName, std::string(warning.text), std::string(warning.key)});
    const bool readable = m_platform.imageFormats.CanReadTiff();
    if (!readable) {
        Refuse(kTiffReaderMissing);
    }
    return readable;
}

void TextureFileDialog::Refuse(std::string_view text)
{
    m_platform.prompts.Show({PromptIcon::Exclamation, std::string(kBoxTitle), std::string(text)});
}

}  // namespace CorvexMaterial
