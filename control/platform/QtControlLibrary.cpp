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

// Asked once, when the library is loaded: the loader's answer may be relative to the folder that
// the program started in.
const std::string kFolder = [] {
    const std::string file = LoadedFile(&kMarker);
    return file.empty() ? std::string()
                        : QFileInfo(QFile::decodeName(file.c_str()))
                              .absoluteDir()
                              .canonicalPath()
                              .toStdString();
}();

}  // namespace

std::string QtControlLibrary::Folder()
{
    return kFolder;
}

void OfferImageFormats()
{
    // An absolute folder of our own, or nothing: whatever lies there is loaded.
    if (!kFolder.empty()) {
        QCoreApplication::addLibraryPath(QString::fromStdString(kFolder + "/CorvexMaterial"));
    }
}

}  // namespace CorvexMaterial
