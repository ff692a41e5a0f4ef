#include "tests/studio_raytrace/RibReader.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace StudioRaytraceTest {
namespace {

class Reader {
public:
    explicit Reader(const std::string& text) : m_text(text) {}

    RibFile Read()
    {
        while (m_file.error.empty() && Skip()) {
            ReadToken();
        }
        if (m_file.error.empty() && (m_inArray || !m_blocks.empty())) {
            m_file.error = "something is left open";
        }
        return m_file;
    }

private:
    bool Skip()
    {
        while (m_at < m_text.size()) {
            if (m_text[m_at] == '#') {
                m_at = std::min(m_text.find_first_of("\r\n", m_at), m_text.size());
            } else if (std::isspace(static_cast<unsigned char>(m_text[m_at])) != 0) {
                ++m_at;
            } else {
                return true;
            }
        }
        return false;
    }

    void ReadToken()
    {
        const char letter = m_text[m_at];
        if (letter == '"') {
            ReadString();
        } else if (letter == '[') {
            Check(!m_inArray && !m_file.requests.empty(), "an array in an array");
            m_inArray = true;
            m_file.requests.back().arrays.emplace_back();
            ++m_at;
        } else if (letter == ']') {
            Check(m_inArray, "a bracket too many");
            m_inArray = false;
            ++m_at;
        } else if (std::isalpha(static_cast<unsigned char>(letter)) != 0) {
            ReadName();
        } else {
            ReadNumber();
        }
    }

    void ReadString()
    {
        std::string content;
        for (++m_at; m_at < m_text.size() && m_text[m_at] != '"'; ++m_at) {
            Check(m_text[m_at] != '\n', "a string over two lines");
            if (m_text[m_at] == '\\') {
                ++m_at;
            }
            content += m_at < m_text.size() ? m_text[m_at] : '\0';
        }
        Check(m_at < m_text.size(), "an open string");
        ++m_at;
        if (!m_file.requests.empty()) {
            m_file.requests.back().strings.push_back(content);
        }
    }

    void ReadName()
    {
        std::string name;
        while (m_at < m_text.size() &&
               std::isalpha(static_cast<unsigned char>(m_text[m_at])) != 0) {
            name += m_text[m_at++];
        }
        Check(!m_inArray, "a name in an array: " + name);
        m_file.requests.push_back({name, {}, {}, {}});
        for (const std::string suffix : {"Begin", "End"}) {
            if (name.size() > suffix.size() &&
                name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0) {
                EnterOrLeave(name.substr(0, name.size() - suffix.size()), suffix == "Begin");
            }
        }
    }

    void EnterOrLeave(const std::string& block, bool enters)
    {
        if (enters) {
            m_blocks.push_back(block);
            return;
        }
        Check(!m_blocks.empty() && m_blocks.back() == block, block + " ends but did not begin");
        if (!m_blocks.empty()) {
            m_blocks.pop_back();
        }
    }

    void ReadNumber()
    {
        const char* begin = m_text.c_str() + m_at;
        char* end = nullptr;
        const float number = std::strtof(begin, &end);
        Check(end != begin && !m_file.requests.empty(), "no number: " + m_text.substr(m_at, 20));
        m_at += end == begin ? 1 : static_cast<std::size_t>(end - begin);
        if (!m_file.requests.empty()) {
            RibRequest& request = m_file.requests.back();
            (m_inArray ? request.arrays.back() : request.numbers).push_back(number);
        }
    }

    void Check(bool fine, const std::string& otherwise)
    {
        if (!fine && m_file.error.empty()) {
            m_file.error = otherwise + " at " + std::to_string(m_at);
        }
    }

    const std::string& m_text;
    std::size_t m_at = 0;
    bool m_inArray = false;
    std::vector<std::string> m_blocks;
    RibFile m_file;
};

}  // namespace

RibFile ReadRib(const std::string& text)
{
    return Reader(text).Read();
}

}  // namespace StudioRaytraceTest
