#pragma once

#include <string>
#include <vector>

namespace CorvexMaterial {

class TemporaryFiles {
public:
    virtual ~TemporaryFiles() = default;
    /// The variable "temp" if set, else the system's folder; no trailing separator.
    virtual std::string Folder() = 0;
    /// Creates `~CVX<n>.<extension>` in the folder, n never used by another process at the same
    /// time, and returns its path. Errors: FileFailed, naming the folder.
    virtual std::string Claim(const std::string& extension) = 0;
    /// Makes this the file's whole content. Errors: FileFailed, naming the file.
    virtual void Write(const std::string& path, const std::string& text) = 0;
    /// Whether a program has put something into the file: it is there and not empty.
    virtual bool HasContent(const std::string& path) = 0;
    /// A missing file is no error.
    virtual void Remove(const std::string& path) = 0;
};

class ControlLibrary {
public:
    virtual ~ControlLibrary() = default;
    /// Folder that the control's library was loaded from, no trailing separator.
    virtual std::string Folder() = 0;
};

/// The library files as the desktop has them; what is in them is the host's business.
class LibraryFiles {
public:
    virtual ~LibraryFiles() = default;
    virtual bool Exists(const std::string& path) = 0;
    /// Takes away what keeps the user from writing to the file. False when that is not possible;
    /// the file can be read all the same.
    virtual bool MakeWritable(const std::string& path) = 0;
    /// Names, without folder, of the folder's files with this extension (no dot) in any case, as a
    /// person sorts them. None of a folder that is not there.
    virtual std::vector<std::string> NamesIn(const std::string& folder,
                                             const std::string& extension) = 0;
};

class ImageFormats {
public:
    virtual ~ImageFormats() = default;
    virtual bool CanReadTiff() = 0;
    virtual bool CanWriteJpeg() = 0;
};

}  // namespace CorvexMaterial
