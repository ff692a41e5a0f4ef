#include "QtImageFormats.h"

#include <QImageReader>
#include <QImageWriter>

namespace CorvexMaterial {

bool QtImageFormats::CanReadTiff()
{
    return QImageReader::supportedImageFormats().contains("tiff");
}

bool QtImageFormats::CanWriteJpeg()
{
    return QImageWriter::supportedImageFormats().contains("jpeg");
}

}  // namespace CorvexMaterial
