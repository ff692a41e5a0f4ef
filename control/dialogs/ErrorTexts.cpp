#include "ErrorTexts.h"

namespace CorvexMaterial {

namespace {

constexpr std::string_view kNumber = "Error #: ";
constexpr std::string_view kDescription = " Error Description: ";
constexpr std::string_view kLocation = " Error Location: ";
constexpr std::string_view kDebugLocation = "Debug Data - Location: ";
constexpr std::string_view kOutOfMemory =
    "Out of memory. Please close all programs and run Corvex again. ";
constexpr std::string_view kUnrecoverableGraphics =
    "An unrecoverable error has occurred. Often errors such as these can be resolved by updating "
    "the drivers for your graphics card. ";
constexpr std::string_view kUnrecoverable = "An unrecoverable error has occurred. ";
constexpr std::string_view kSupport =
    "If it happens again, please send the following text to Corvex support.";

std::string Details(const ErrorReport& report)
{
    return std::string(kNumber)
        .append(std::to_string(static_cast<std::int32_t>(report.status)))
        .append(kDescription)
        .append(report.description)
        .append(kLocation)
        .append(report.location);
}

std::string WithSupport(std::string_view opening, const ErrorReport& report)
{
    return std::string(opening).append(kSupport).append("\n\n").append(Details(report));
}

}  // namespace

bool IsUnrecoverable(const ErrorReport& report)
{
    return report.status == Status::Failed || report.status == Status::GraphicsFailed;
}

bool IsForUser(const ErrorReport& report)
{
    const bool isHis =
        report.status == Status::FileFailed || report.status == Status::ConversionFailed;
    return isHis && !report.description.empty();
}

std::string ErrorBoxText(const ErrorReport& report)
{
    switch (report.status) {
    case Status::OutOfMemory:
        return std::string(kOutOfMemory);
    case Status::GraphicsFailed:
        return WithSupport(kUnrecoverableGraphics, report);
    case Status::Failed:
        return WithSupport(kUnrecoverable, report);
    default:
        return Details(report);
    }
}

std::string DebugDataText(const ErrorReport& report)
{
    return std::string(kDebugLocation).append(report.location);
}

}  // namespace CorvexMaterial
