#include "Services.h"

#include <CorvexMaterial/Status.h>

#include <QDesktopServices>
#include <QImage>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <iostream>

using CorvexMaterial::Error;
using CorvexMaterial::Status;

namespace {

[[noreturn]] void RefuseLibrary(const std::string& path)
{
    throw Error(Status::FileFailed, "This host keeps no libraries: " + path + " is not opened.");
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

CorvexDB::LibraryContent NoMaterialLibrary::Open(const std::string& path)
{
    RefuseLibrary(path);
}

CorvexDB::LibraryContent NoTextureLibrary::Open(const std::string& path)
{
    RefuseLibrary(path);
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
