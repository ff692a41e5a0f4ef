#pragma once

#include "Testing.h"
#include <QByteArray>
#include <QColor>
#include <QSize>

class QImage;

namespace CorvexTest {

/// A folder for files of a test's own; it goes when the test does.
class SampleFolder {
public:
    [[nodiscard]] QString Path() const { return m_folder.path(); }
    [[nodiscard]] QString PathOf(const QString& name) const { return m_folder.filePath(name); }

    // Each makes the folders on the way and gives the file's path back.
    QString Write(const QString& name, const QByteArray& bytes) const;
    /// A program for the shell.
    QString WriteScript(const QString& name, const QByteArray& lines) const;
    QString Save(const QString& name, const QImage& image) const;
    QString Save(const QString& name, const QColor& colour, QSize size = {64, 64}) const;

private:
    QTemporaryDir m_folder;
};

/// Nothing of a file that cannot be read.
QByteArray ContentOf(const QString& path);

}  // namespace CorvexTest
