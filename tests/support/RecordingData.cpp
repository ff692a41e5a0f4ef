#include "RecordingData.h"

namespace CorvexTest {
void RecordingApplicationState::OpenWebSite(CorvexDB::WebSite site)
{
    m_log.Enter("ApplicationState.OpenWebSite", std::to_string(static_cast<int>(site)));
}

std::string
RecordingRaytrace::CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    m_log.Enter("RaytraceServices.CombinedAttributes");
    return "combined, brilliance " + std::to_string(attributes.Brilliance);
}

void RecordingRaytrace::SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                                   std::int32_t quality)
{
    m_log.Enter("RaytraceServices.SaveAsJpeg",
                bitmapPath + " " + jpegPath + " " + std::to_string(quality));
}

}  // namespace CorvexTest
