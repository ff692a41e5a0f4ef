#include "StudioRaytraceServices.h"

#include "CombinedAttributes.h"
#include "PictureFile.h"
#include "QtRegularFile.h"
#include "RaytracerAtWork.h"
#include <CorvexMaterial/Status.h>

namespace studio {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

}  // namespace

std::string StudioRaytraceServices::CombinedAttributes(
    const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    return AttributeText(attributes);
}

std::int32_t StudioRaytraceServices::StartAndWait(const CorvexDB::CommandLine& commandLine)
{
    constexpr std::chrono::seconds kLong{1};
    CorvexMaterial::RaytracerAtWork work(m_processes, commandLine);
    while (work.GoesOn(kLong)) {
    }
    const CorvexMaterial::JobEnd end = work.End();
    if (end.crashed) {
        throw Error(Status::Failed, commandLine.program + " crashed.");
    }
    return end.exitCode;
}

void StudioRaytraceServices::RaytraceAbandoned()
{
    if (m_abandoned) {
        m_abandoned();
    }
}

void StudioRaytraceServices::SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                                        std::int32_t quality)
{
    if (quality < 1 || quality > 100) {
        throw Error(Status::InvalidArgument, "The quality of a JPEG file is 1 to 100.");
    }
    SavePicture(CorvexMaterial::ReadPicture(QString::fromStdString(bitmapPath)),
                QString::fromStdString(jpegPath),
                {"jpeg", quality, CorvexMaterial::Lifetime::Temporary});
}

}  // namespace studio
