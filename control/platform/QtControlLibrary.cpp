#include "QtControlLibrary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace CorvexMaterial {

namespace {

/// Any object of this library tells the loader which library is meant.
const char kMarker = 0;

}  // namespace

// Asked once and early: the loader's answer may be relative to the folder the program started in.
QtControlLibrary::QtControlLibrary()
{
    Dl_info info{};
    if (::dladdr(&kMarker, &info) != 0 && info.dli_fname != nullptr) {
        m_folder = QFileInfo(QFile::decodeName(info.dli_fname))
                       .absoluteDir()
                       .canonicalPath()
                       .toStdString();
    }
}

std::string QtControlLibrary::Folder()
{
    return m_folder;
}

}  // namespace CorvexMaterial
