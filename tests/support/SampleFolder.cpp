#include "SampleFolder.h"

namespace CorvexTest {

QString SampleFolder::Write(const QString& name, const QByteArray& bytes) const
{
    QFile file(PathOf(name));
    QDir().mkpath(QFileInfo(file).path());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
    return file.fileName();
}

QString SampleFolder::WriteScript(const QString& name, const QByteArray& lines) const
{
    const QString path = Write(name, "#!/bin/sh\n" + lines + '\n');
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

QString SampleFolder::Save(const QString& name, const QImage& image) const
{
    const QString path = PathOf(name);
    QDir().mkpath(QFileInfo(path).path());
    EXPECT_TRUE(image.save(path)) << name.toStdString();
    return path;
}

QString SampleFolder::Save(const QString& name, const QColor& colour, QSize size) const
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return Save(name, image);
}

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace CorvexTest
