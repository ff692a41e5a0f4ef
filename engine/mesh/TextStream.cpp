#include "TextStream.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace studio {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;
constexpr std::size_t kLongestNumber = 32;

}  // namespace

TextStream::TextStream(Sink sink)
    : m_sink(std::move(sink)), m_buffer(std::make_unique<char[]>(kPiece))
{
}

void TextStream::Finish()
{
    if (m_used > 0) {
        m_sink({m_buffer.get(), m_used});
        m_used = 0;
    }
}

char* TextStream::RoomFor(std::size_t letters)
{
    if (m_used + letters > kPiece) {
        Finish();
    }
    return m_buffer.get() + m_used;
}

TextStream& TextStream::operator<<(std::string_view text)
{
    if (text.size() > kPiece) {
        Finish();
        m_sink(text);
        return *this;
    }
    if (!text.empty()) {
        std::memcpy(RoomFor(text.size()), text.data(), text.size());
        m_used += text.size();
    }
    return *this;
}

TextStream& TextStream::operator<<(char letter)
{
    *RoomFor(1) = letter;
    ++m_used;
    return *this;
}

template <typename Number>
TextStream& TextStream::Append(Number number)
{
    char* begin = RoomFor(kLongestNumber);
    m_used +=
        static_cast<std::size_t>(std::to_chars(begin, begin + kLongestNumber, number).ptr - begin);
    return *this;
}

TextStream& TextStream::operator<<(float number)
{
    return Append(std::isfinite(number) ? number : 0.0F);
}

TextStream& TextStream::operator<<(int number)
{
    return Append(number);
}

TextStream& TextStream::operator<<(std::uint32_t number)
{
    return Append(number);
}

TextStream& TextStream::operator<<(std::size_t number)
{
    return Append(number);
}

TextStream& TextStream::operator<<(const QVector3D& vector)
{
    return *this << vector.x() << ',' << vector.y() << ',' << vector.z();
}

}  // namespace studio
