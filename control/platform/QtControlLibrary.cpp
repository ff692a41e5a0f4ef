#include "QtControlLibrary.h"

#include "LoadedFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace CorvexMaterial {

namespace {

/// Any object of this library tells the loader which library is meant.
const char kMarker = 0;

}  // namespace

// Asked once and early: the loader's answer may be relative to the folder the program started in.
QtControlLibrary::QtControlLibrary()
{
    if (const std::string file = LoadedFile(&kMarker); !file.empty()) {
        m_folder =
            QFileInfo(QFile::decodeName(file.c_str())).absoluteDir().canonicalPath().toStdString();
    }
}

std::string QtControlLibrary::Folder()
{
    return m_folder;
}

void OfferImageFormats()
{
    // An absolute folder of our own, or nothing: whatever lies there is loaded.
    const std::string folder = QtControlLibrary().Folder();
    if (!folder.empty()) {
        QCoreApplication::addLibraryPath(QString::fromStdString(folder + "/CorvexMaterial"));
    }
}

}  // namespace CorvexMaterial
