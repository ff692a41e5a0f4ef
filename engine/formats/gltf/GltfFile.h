#pragma once

#include "DocumentFile.h"
#include "Report.h"

#include <QJsonArray>
#include <QJsonObject>

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace studio {

/// A glTF document, as text or as a binary file, and the data that it names. What reaches beyond
/// its data is refused: FileFailed naming the file.
class GltfFile {
public:
    /// The bytes are those of the file and outlive this.
    GltfFile(const QByteArray& bytes, const std::string& path);

    [[nodiscard]] const QJsonObject& Root() const { return m_root; }
    /// The object of this number in one of the document's lists, "meshes" for one; empty when there
    /// is none.
    [[nodiscard]] QJsonObject At(const char* list, const QJsonValue& index) const;
    [[nodiscard]] const std::string& Folder() const { return m_folder; }

    /// Those beside the document that its buffers are in.
    [[nodiscard]] std::vector<std::string> DataFiles() const;
    /// The bytes of a buffer view; they last as long as this.
    [[nodiscard]] QByteArray View(const QJsonValue& index);
    /// Numbers of an accessor, as many to an element as wanted; normalised where the accessor says
    /// so. Nothing for no accessor.
    template <std::size_t components>
    [[nodiscard]] std::vector<std::array<float, components>> Floats(const QJsonValue& accessor);
    [[nodiscard]] std::vector<std::uint32_t> Indices(const QJsonValue& accessor);

private:
    struct Elements {
        QByteArray bytes;  ///< from the first element on
        std::size_t stride = 0;
        std::size_t count = 0;
        std::size_t components = 1;
        int type = 0;
        bool normalised = false;

        [[nodiscard]] float Number(std::size_t element, std::size_t component) const;
        [[nodiscard]] std::uint32_t Whole(std::size_t element) const;
    };

    [[noreturn]] void Refuse(const char* cause) const;
    void ParseBinary(const QByteArray& bytes);
    void ParseText(const QByteArray& bytes);
    [[nodiscard]] QByteArray Buffer(int index);
    [[nodiscard]] std::string PathOf(const QString& uri) const;
    [[nodiscard]] Elements ElementsOf(const QJsonObject& accessor, const QJsonObject& place);

    std::string m_path;
    std::string m_folder;
    QJsonObject m_root;
    std::map<QString, QJsonArray> m_lists;
    QByteArray m_binary;  ///< the data of a binary file
    std::map<int, QByteArray> m_buffers;
    std::vector<std::unique_ptr<ModelFile>> m_files;
};

/// What "data:" text holds; nothing for any other.
[[nodiscard]] std::optional<QByteArray> DataOfUri(const QString& uri);

}  // namespace studio
