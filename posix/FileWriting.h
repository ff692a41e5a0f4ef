#pragma once

#include <span>
#include <stop_token>
#include <string>
#include <system_error>

namespace CorvexMaterial {

/// What a file is for. One that lasts is on the disk, and has its name there, before it counts as
/// written; a link in its place stays, and the file it leads to is written. A temporary one is not
/// waited for, is for this user alone, and replaces a link.
enum class Lifetime { Lasting, Temporary };

/// What becomes of a file that has the name already; one that is kept is an error.
enum class Existing { Replaced, Kept };

/// Errors: Failed, once a stop is asked for.
void ThrowIfStopped(const std::stop_token& stop);

/// A file written piece by piece. It has no name until it is complete, then takes the place of the
/// file that had its name, with that one's permissions. Until then, and after any error, the old
/// file is as it was and nothing else is left. What is no file (a terminal, a pipe, a device) is
/// written to as it is. Errors: FileFailed, naming the path and the system's reason; Failed, when a
/// stop is asked for while something is left to write.
class FileWriter {
public:
    explicit FileWriter(std::string path, Lifetime lifetime = Lifetime::Lasting,
                        Existing existing = Existing::Replaced, std::stop_token stop = {});
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    void Write(std::span<const char> bytes);
    /// What was written is on the disk, and only the name is left to be taken.
    void Sync();
    /// Without it nothing was written.
    void Finish();

private:
    void OpenStraight();
    void OpenBeside(unsigned mode);
    [[nodiscard]] int LinkAs(const std::string& name) const;
    [[nodiscard]] bool IsNamedAtOnce() const;
    void NameBeside();
    [[nodiscard]] int TakeName() const;
    void Close();
    void SyncFolder() const;
    [[noreturn]] void Fail(int reason) const;

    std::string m_path;    ///< as the caller names it
    std::string m_target;  ///< where its links lead
    std::string m_beside;  ///< its name until it takes the target's; empty while it has none
    Lifetime m_lifetime;
    Existing m_existing;
    std::stop_token m_stop;
    bool m_isSynced = false;
    bool m_straight = false;
    int m_file = -1;
};

/// The whole file at once.
void WriteFile(const std::string& path, std::span<const char> bytes,
               Lifetime lifetime = Lifetime::Lasting, Existing existing = Existing::Replaced);

/// What is left of a program that was killed in the moment when a new file took the place of this
/// one. For who knows that nobody writes it now.
void RemoveLeftover(const std::string& path);

/// Why the user that this process acts for may not write to a file or folder; none if he may.
[[nodiscard]] std::error_code WriteRefusal(const std::string& path);

/// With the folders above it; one that is there is fine. Errors: FileFailed, as above.
void MakeFolder(const std::string& path);

}  // namespace CorvexMaterial
