#include "studio/raytrace/StudioRaytraceServices.h"

#include "host/Status.h"
#include "platform/ProcessLeash.h"
#include "platform/QtRegularFile.h"
#include "studio/images/PictureFile.h"
#include "studio/raytrace/writing/CombinedAttributes.h"

#include <QEventLoop>
#include <QProcess>

namespace studio {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

[[noreturn]] void RefuseFile(const QString& file, const QString& reason)
{
    throw Error(Status::FileFailed, file.toStdString() + ": " + reason.toStdString());
}

}  // namespace

std::string StudioRaytraceServices::CombinedAttributes(
    const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    return AttributeText(attributes);
}

std::int32_t StudioRaytraceServices::StartAndWait(const CorvexDB::CommandLine& commandLine)
{
    const CorvexMaterial::ProcessLeash leash;
    QProcess process;
    process.setChildProcessModifier([&leash] { leash.HoldThisProcess(); });
    QStringList arguments;
    for (const std::string& argument : commandLine.arguments) {
        arguments << QString::fromStdString(argument);
    }
    process.setWorkingDirectory(QString::fromStdString(commandLine.workingFolder));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QString::fromStdString(commandLine.program), arguments);
    if (!process.waitForStarted()) {
        RefuseFile(process.program(), process.errorString());
    }
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    if (process.state() != QProcess::NotRunning) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (process.exitStatus() != QProcess::NormalExit) {
        throw Error(Status::Failed, commandLine.program + " crashed.");
    }
    return process.exitCode();
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
