#include "ImageFormatPlugin.h"

#include "OwnFormats.h"
#include "OwnImage.h"

#include <QFileDevice>
#include <QFileInfo>
#include <QImageIOHandler>
#include <QVariant>

namespace studio {

namespace {

/// The suffix decides among formats without a signature; a format asked for by name counts as one.
std::string SuffixFor(const QIODevice* device, const QByteArray& format)
{
    if (!format.isEmpty()) {
        return format.toStdString();
    }
    const auto* file = qobject_cast<const QFileDevice*>(device);
    return file != nullptr ? LowerSuffix(file->fileName()) : std::string();
}

const OwnFormat* FormatOf(QIODevice* device, const QByteArray& format)
{
    const QByteArray head = device->peek(kFormatHeadBytes);
    return FindOwnFormat(BytesOf(head), SuffixFor(device, format));
}

class OwnFormatHandler final : public QImageIOHandler {
public:
    bool canRead() const override { return FormatOf(device(), format()) != nullptr; }

    bool read(QImage* image) override
    {
        const OwnFormat* own = FormatOf(device(), format());
        if (own == nullptr) {
            return false;
        }
        try {
            *image = ReadOwnImage(*own, *device());
            return true;
        } catch (const ImageError& error) {
            qWarning("%.*s: %s", static_cast<int>(own->name.size()), own->name.data(),
                     error.what());
            return false;
        }
    }

    bool supportsOption(ImageOption option) const override { return option == Size; }

    QVariant option(ImageOption option) const override
    {
        const OwnFormat* own = option == Size ? FormatOf(device(), format()) : nullptr;
        if (own == nullptr) {
            return {};
        }
        const QByteArray head = device()->peek(kFormatHeadBytes);
        const ImageExtent extent = own->extentOf(BytesOf(head)).value_or(ImageExtent{});
        return QSize(static_cast<int>(extent.width), static_cast<int>(extent.height));
    }
};

}  // namespace

QImageIOPlugin::Capabilities ImageFormatPlugin::capabilities(QIODevice* device,
                                                             const QByteArray& format) const
{
    if (device == nullptr) {
        const auto formats = OwnFormats();
        const bool known = std::any_of(formats.begin(), formats.end(), [&](const OwnFormat& own) {
            return own.name == format.toStdString();
        });
        return known ? CanRead : Capabilities();
    }
    return device->isReadable() && FormatOf(device, format) != nullptr ? CanRead : Capabilities();
}

QImageIOHandler* ImageFormatPlugin::create(QIODevice* device, const QByteArray& format) const
{
    auto* handler = new OwnFormatHandler;
    handler->setDevice(device);
    handler->setFormat(format);
    return handler;
}

}  // namespace studio

#include "moc_ImageFormatPlugin.cpp"
