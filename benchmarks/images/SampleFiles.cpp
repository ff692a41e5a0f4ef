#include "SampleFiles.h"

#include <QDataStream>
#include <QIODevice>

namespace {

constexpr int kGifClear = 128;
constexpr int kGifEnd = 129;

/// Little-endian values, one after the other.
class Writer {
public:
    explicit Writer(QByteArray& bytes) : m_stream(&bytes, QIODevice::WriteOnly)
    {
        m_stream.setByteOrder(QDataStream::LittleEndian);
    }
    Writer& Bytes(std::initializer_list<int> values)
    {
        for (const int value : values) {
            m_stream << static_cast<quint8>(value);
        }
        return *this;
    }
    Writer& Words(std::initializer_list<int> values)
    {
        for (const int value : values) {
            m_stream << static_cast<quint16>(value);
        }
        return *this;
    }
    Writer& Zeros(int count) { return Text(QByteArray(count, '\0')); }
    Writer& Text(const QByteArray& text)
    {
        m_stream.writeRawData(text.constData(), static_cast<int>(text.size()));
        return *this;
    }

private:
    QDataStream m_stream;
};

void AppendPackedRow(Writer& writer, const QByteArray& row)
{
    constexpr qsizetype kPixelsPerPacket = 128;
    for (qsizetype x = 0; x < row.size(); x += 3 * kPixelsPerPacket) {
        const QByteArray part = row.mid(x, 3 * kPixelsPerPacket);
        writer.Bytes({static_cast<int>(part.size() / 3) - 1}).Text(part);
    }
}

void AppendPcxPlane(Writer& writer, const QImage& row, int plane)
{
    for (int x = 0; x < row.width(); ++x) {
        const int value = row.constScanLine(0)[x * 3 + plane];
        if (value >= 0xC0) {
            writer.Bytes({0xC1});
        }
        writer.Bytes({value});
    }
}

}  // namespace

QByteArray TgaFile(const QImage& image, bool packed)
{
    const QImage bgr = image.convertToFormat(QImage::Format_BGR888);
    QByteArray file;
    Writer writer(file);
    writer.Bytes({0, 0, packed ? 10 : 2}).Zeros(9);
    writer.Words({bgr.width(), bgr.height()}).Bytes({24, 0x20});
    for (int y = 0; y < bgr.height(); ++y) {
        const auto* line = reinterpret_cast<const char*>(bgr.constScanLine(y));
        const auto row = QByteArray::fromRawData(line, qsizetype{bgr.width()} * 3);
        if (packed) {
            AppendPackedRow(writer, row);
        } else {
            writer.Text(row);
        }
    }
    // The toolkit's reader asks for the second version's footer.
    writer.Zeros(8).Text("TRUEVISION-XFILE.").Zeros(1);
    return file;
}

QByteArray PcxFile(const QImage& image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    QByteArray file;
    Writer writer(file);
    writer.Bytes({10, 5, 1, 8}).Words({0, 0, rgb.width() - 1, rgb.height() - 1, 72, 72});
    writer.Zeros(49).Bytes({3}).Words({rgb.width(), 1}).Zeros(58);
    for (int y = 0; y < rgb.height(); ++y) {
        const QImage row = rgb.copy(0, y, rgb.width(), 1);
        for (int plane = 0; plane < 3; ++plane) {
            AppendPcxPlane(writer, row, plane);
        }
    }
    return file;
}

QByteArray DdsFile(QSize size)
{
    QByteArray file;
    Writer writer(file);
    writer.Text("DDS ").Words({124, 0, 0, 0, size.height(), 0, size.width(), 0}).Zeros(56);
    writer.Words({32, 0, 4, 0}).Text("DXT5").Zeros(40);
    const QByteArray block = QByteArray::fromHex("ff00887766554433 00f81f00e4e4e4e4");
    writer.Text(block.repeated(qsizetype{size.width()} / 4 * (size.height() / 4)));
    return file;
}

QByteArray GifFile(const QImage& image)
{
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    QByteArray file;
    Writer writer(file);
    writer.Text("GIF89a").Words({grey.width(), grey.height()}).Bytes({0xF6, 0, 0});
    for (int i = 0; i < 128; ++i) {
        writer.Bytes({2 * i, 2 * i, 2 * i});
    }
    writer.Text(",").Words({0, 0, grey.width(), grey.height()}).Bytes({0, 7});
    // A clear code before the table grows keeps every code at eight bits.
    constexpr int kCodesPerClear = 120;
    for (int y = 0; y < grey.height(); ++y) {
        for (int left = 0; left < grey.width(); left += kCodesPerClear) {
            const int count = std::min(kCodesPerClear, grey.width() - left);
            writer.Bytes({count + 1, kGifClear});
            for (int x = left; x < left + count; ++x) {
                writer.Bytes({grey.constScanLine(y)[x] / 2});
            }
        }
    }
    writer.Bytes({1, kGifEnd, 0}).Text(";");
    return file;
}
