#include "Services.h"

#include <host/Status.h>

#include <QDesktopServices>
#include <QImage>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <iostream>

using CorvexMaterial::Error;
using CorvexMaterial::Status;

namespace {

template <typename Entries>
auto& EntryAt(Entries& entries, std::int32_t index)
{
    if (index < 0 || index >= static_cast<std::int32_t>(entries.size())) {
        throw Error(Status::InvalidArgument, "The library has no such entry.");
    }
    return entries[static_cast<std::size_t>(index)];
}

template <typename Entries>
void Erase(Entries& entries, std::int32_t index)
{
    entries.erase(entries.begin() + (&EntryAt(entries, index) - entries.data()));
}

template <typename Entries>
std::int32_t CountOf(const Entries& entries)
{
    return static_cast<std::int32_t>(entries.size());
}

}  // namespace

void HostState::OpenWebSite(CorvexDB::WebSite site)
{
    if (site == CorvexDB::WebSite::PovRay) {
        QDesktopServices::openUrl(QUrl("https://www.povray.org/"));
    }
}

void TerminalDiagnostics::RecordEvent(std::string_view text)
{
    std::clog << text << '\n';
}

void TerminalDiagnostics::DebugTrace(std::string_view text)
{
    std::clog << "trace: " << text << '\n';
}

CorvexDB::LibraryContent MemoryMaterialLibrary::Open(const std::string& path)
{
    m_open = &m_libraries[path];
    return {CountOf(*m_open)};
}

CorvexDB::udtMaterial MemoryMaterialLibrary::MaterialAt(std::int32_t index)
{
    return EntryAt(*m_open, index);
}

void MemoryMaterialLibrary::AddMaterialToLibrary(const CorvexDB::udtMaterial& material)
{
    m_open->push_back(material);
}

void MemoryMaterialLibrary::DeleteMaterialFromLibrary(std::int32_t index)
{
    Erase(*m_open, index);
}

CorvexDB::LibraryContent MemoryTextureLibrary::Open(const std::string& path)
{
    m_open = &m_libraries[path];
    return {CountOf(*m_open)};
}

CorvexDB::TextureCollection& MemoryTextureLibrary::Textures()
{
    return *this;
}

std::string MemoryTextureLibrary::SelectedLibraryTexture(std::int32_t index)
{
    return EntryAt(*m_open, index);
}

void MemoryTextureLibrary::AddTextureToLibrary(const std::string& file)
{
    m_open->push_back(file);
}

void MemoryTextureLibrary::DeleteTextureFromLibrary(std::int32_t index)
{
    Erase(*m_open, index);
}

std::int32_t MemoryTextureLibrary::Count()
{
    return CountOf(*m_open);
}

std::string MemoryTextureLibrary::FileAt(std::int32_t index)
{
    return EntryAt(*m_open, index);
}

std::string NoRaytracer::CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes&)
{
    return {};
}

std::int32_t NoRaytracer::StartAndWait(const CorvexDB::CommandLine&)
{
    throw Error(Status::NotAvailable, "This host starts no raytracer.");
}

void NoRaytracer::SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                             std::int32_t quality)
{
    const QImage picture(QString::fromStdString(bitmapPath));
    if (!picture.save(QString::fromStdString(jpegPath), "jpeg", quality)) {
        throw Error(Status::FileFailed, "The picture " + jpegPath + " cannot be written.");
    }
}

std::string NoRaytracer::ExportRaytraceScene(const CorvexSG::RaytraceExport&)
{
    throw Error(Status::NotAvailable, "This host exports no scene.");
}

std::string RangeValidation::Accept(const std::string& text,
                                    const CorvexCommon::NumericRange& range)
{
    bool isNumber = false;
    const double typed = QString::fromStdString(text).toDouble(&isNumber);
    const double number =
        isNumber && std::isfinite(typed) ? typed : static_cast<double>(range.defaultValue);
    const double accepted =
        std::clamp(number, static_cast<double>(range.minimum), static_cast<double>(range.maximum));
    return QString::number(accepted, 'f', range.decimals).toStdString();
}
