#pragma once

#include <QByteArray>
#include <QImage>

/// Files of types that the toolkit reads or does not read, but never writes. Uncompressed but for
/// the marks that the format needs.

/// 24 bit.
QByteArray TgaFile(const QImage& image, bool packed);
QByteArray PcxFile(const QImage& image);

/// Blocks of two colours and alpha, all alike.
QByteArray DdsFile(QSize size);

/// At most 128 greys; every code of the compression stands for one pixel.
QByteArray GifFile(const QImage& image);
