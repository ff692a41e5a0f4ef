#include "CheckedPlugin.h"

#include "PluginCheck.h"
#include "Tr.h"
#include <CorvexMaterial/ErrorReport.h>

#include <cstring>
#include <utility>

namespace studio {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

QString CaughtText()
{
    const auto report = CorvexMaterial::Describe(std::current_exception(), {});
    return report.status == Status::OutOfMemory ? Tr("it needs more memory than there is")
                                                : QString::fromStdString(report.description);
}

CorvexDB::PluginParameter TableRow(const CorvexPlugin::Parameter& parameter)
{
    CorvexDB::PluginParameter row;
    row.name = parameter.name;
    row.kind = static_cast<CorvexDB::ParameterKind>(parameter.kind);
    row.minimum = parameter.minimum;
    row.maximum = parameter.maximum;
    row.decimals = parameter.decimals;
    row.choices = parameter.choices;
    row.boxDefault = parameter.defaultValue;
    row.defaultValue = parameter.defaultValue;
    row.step = parameter.step;
    return row;
}

QImage ImageOf(const std::vector<std::uint8_t>& bytes, int size, QImage::Format format)
{
    QImage image(size, size, format);
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    const std::size_t rowBytes = bytes.size() / static_cast<std::size_t>(size);
    for (int y = 0; y < size; ++y) {
        std::memcpy(image.scanLine(y), bytes.data() + static_cast<std::size_t>(y) * rowBytes,
                    rowBytes);
    }
    return image;
}

}  // namespace

CheckedPlugin::CheckedPlugin(const CorvexPlugin::MaterialPlugin& code, QString file)
    : m_code(code), m_file(std::move(file))
{
    try {
        m_name = code.Name();
        m_parameters = code.Parameters();
    } catch (...) {
        throw Failure(CaughtText());
    }
    const QString fault = PluginFault(m_name, m_parameters);
    if (!fault.isEmpty()) {
        throw Error(Status::InvalidArgument, Failure(fault).what());
    }
    for (const CorvexPlugin::Parameter& parameter : m_parameters) {
        m_table.push_back(TableRow(parameter));
    }
}

Error CheckedPlugin::Failure(const QString& reason) const
{
    return {Status::Failed, Tr("The plug-in “%1” failed: %2.").arg(m_file, reason).toStdString()};
}

std::vector<float> CheckedPlugin::Fitted(const std::vector<float>& values) const
{
    std::vector<float> fitted;
    for (std::size_t i = 0; i < m_parameters.size(); ++i) {
        const float value = i < values.size() ? values[i] : m_parameters[i].defaultValue;
        fitted.push_back(FittedValue(m_parameters[i], value));
    }
    return fitted;
}

CorvexPlugin::Texture CheckedPlugin::Generate(const CorvexPlugin::Request& request) const
{
    CorvexPlugin::Texture texture;
    try {
        const std::lock_guard one(m_drawing);
        m_code.Generate(request, texture);
    } catch (...) {
        throw Failure(CaughtText());
    }
    return texture;
}

PluginTexture CheckedPlugin::Draw(const std::vector<float>& fitted, int size,
                                  const std::function<bool()>& isCancelled) const
{
    const CorvexPlugin::Texture drawn = Generate({size, size, fitted, isCancelled});
    if (isCancelled()) {
        return {};
    }
    const auto pixels = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    if (drawn.rgba.size() != pixels * 4) {
        throw Failure(
            Tr("it drew %1 bytes where %2 are needed").arg(drawn.rgba.size()).arg(pixels * 4));
    }
    if (!drawn.height.empty() && drawn.height.size() != pixels) {
        throw Failure(
            Tr("it gave %1 heights where %2 are needed").arg(drawn.height.size()).arg(pixels));
    }
    PluginTexture texture;
    texture.color = ImageOf(drawn.rgba, size, QImage::Format_RGBA8888);
    if (!drawn.height.empty()) {
        texture.bump = ImageOf(drawn.height, size, QImage::Format_Grayscale8);
    }
    return texture;
}

}  // namespace studio
