#pragma once

#include <QImageIOPlugin>

namespace studio {

/// Gives the image readers of the whole process our own formats.
class ImageFormatPlugin : public QImageIOPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "ImageFormatPlugin.json")
public:
    [[nodiscard]] Capabilities capabilities(QIODevice* device,
                                            const QByteArray& format) const override;
    [[nodiscard]] QImageIOHandler* create(QIODevice* device,
                                          const QByteArray& format) const override;
};

}  // namespace studio
