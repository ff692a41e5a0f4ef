#include "PovRayImageFile.h"

#include "QtRegularFile.h"

#include <QFile>
#include <QtEndian>

namespace studio {
namespace {

bool IsPlainPng(QFile& file)
{
    if (file.read(8) != QByteArray("\x89PNG\r\n\x1a\n", 8)) {
        return false;
    }
    constexpr qint64 kCheckSum = 4;
    bool colourMayBeClear = true;
    bool someIsClear = false;
    for (QByteArray head = file.read(8); head.size() == 8; head = file.read(8)) {
        const QByteArray type = head.mid(4);
        if (type == "IDAT") {
            return !(colourMayBeClear && someIsClear);
        }
        if (type == "IHDR") {
            constexpr char kPalette = 3;  // has an alpha for each colour, which is read well
            colourMayBeClear = !file.peek(10).endsWith(kPalette);
        }
        someIsClear = someIsClear || type == "tRNS";
        file.skip(qFromBigEndian<quint32>(head.constData()) + kCheckSum);
    }
    return false;
}

bool IsPlainJpeg(QFile& file)
{
    const bool ends = file.seek(file.size() - 2) && file.read(2) == "\xFF\xD9";
    if (!ends || !file.seek(0) || file.read(2) != "\xFF\xD8") {
        return false;
    }
    for (QByteArray head = file.read(4); head.size() == 4; head = file.read(4)) {
        const auto marker = static_cast<uchar>(head[1]);
        if (marker >= 0xC0 && marker <= 0xC2) {  // the frame: bits, height, width, components
            const QByteArray frame = file.read(6);
            return frame.size() == 6 && frame[0] == 8 && (frame[5] == 1 || frame[5] == 3);
        }
        file.skip(qFromBigEndian<quint16>(head.constData() + 2) - 2);
    }
    return false;
}

}  // namespace

std::string_view PovRayTypeOf(const QString& path)
{
    QFile file(path);
    if (!CorvexMaterial::OpenRegular(file, CorvexMaterial::kMostPictureFileBytes).empty()) {
        return {};
    }
    if (IsPlainPng(file)) {
        return "png";
    }
    return IsPlainJpeg(file) ? "jpeg" : "";
}

}  // namespace studio
