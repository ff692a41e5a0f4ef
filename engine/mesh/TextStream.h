#pragma once

#include <QVector3D>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

namespace studio {

/// Text for a file, gathered in large pieces. Numbers have a dot as their decimal sign whatever the
/// locale; what is not a number is written as 0. One per file; a million triangles go through here.
class TextStream {
public:
    using Sink = std::function<void(std::string_view)>;

    /// The sink gets every piece in order, the last one from `Finish`. It may throw.
    explicit TextStream(Sink sink);

    TextStream& operator<<(std::string_view text);
    TextStream& operator<<(char letter);
    TextStream& operator<<(float number);
    TextStream& operator<<(int number);
    TextStream& operator<<(std::uint32_t number);
    TextStream& operator<<(std::size_t number);
    /// `x,y,z`, without brackets.
    TextStream& operator<<(const QVector3D& vector);

    void Finish();

private:
    [[nodiscard]] char* RoomFor(std::size_t letters);
    template <typename Number>
    TextStream& Append(Number number);

    Sink m_sink;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_used = 0;
};

}  // namespace studio
