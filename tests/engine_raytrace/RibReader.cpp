#include "RibReader.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

namespace StudioRaytraceTest {
namespace {

bool Is(int (*kind)(int), char letter)
{
    return kind(static_cast<unsigned char>(letter)) != 0;
}

/// Strings in double quotes with backslashes, arrays in brackets, numbers, names, comments.
class Tokens {
public:
    Tokens(const std::string& text, RibFile& file) : m_text(text), m_file(file)
    {
        while (m_file.faults.empty() && Skip()) {
            ReadToken();
        }
        Check(!m_inArray, "an array is left open");
    }

private:
    bool Skip()
    {
        while (m_at < m_text.size() && (m_text[m_at] == '#' || Is(std::isspace, m_text[m_at]))) {
            m_at = m_text[m_at] == '#' ? std::min(m_text.find_first_of("\r\n", m_at), m_text.size())
                                       : m_at + 1;
        }
        return m_at < m_text.size();
    }

    void ReadToken()
    {
        const char letter = m_text[m_at];
        if (Is(std::isalpha, letter)) {
            ReadName();
        } else if (m_file.requests.empty()) {
            Check(false, "nothing is requested yet");
        } else if (letter == '"') {
            ReadString();
        } else if (letter == '[' || letter == ']') {
            Check(m_inArray == (letter == ']'), "a bracket too many");
            m_inArray = letter == '[';
            if (m_inArray) {
                m_file.requests.back().arguments.push_back({true, {}, {}});
            }
            ++m_at;
        } else {
            ReadNumber();
        }
    }

    RibArgument& Argument()
    {
        auto& arguments = m_file.requests.back().arguments;
        if (!m_inArray) {
            arguments.emplace_back();
        }
        return arguments.back();
    }

    void ReadString()
    {
        std::string content;
        for (++m_at; m_at < m_text.size() && m_text[m_at] != '"'; ++m_at) {
            Check(!Is(std::iscntrl, m_text[m_at]), "a control letter in a string");
            m_at += m_text[m_at] == '\\' ? 1 : 0;
            content += m_at < m_text.size() ? m_text[m_at] : '\0';
        }
        Check(m_at++ < m_text.size(), "a string is left open");
        Argument().strings.push_back(content);
    }

    void ReadName()
    {
        std::string name;
        while (m_at < m_text.size() && Is(std::isalpha, m_text[m_at])) {
            name += m_text[m_at++];
        }
        Check(!m_inArray, "a name in an array: " + name);
        m_file.requests.push_back({name, {}});
    }

    void ReadNumber()
    {
        const char* begin = m_text.c_str() + m_at;
        char* end = nullptr;
        const float number = std::strtof(begin, &end);
        Check(end != begin && std::isfinite(number), "no number: " + m_text.substr(m_at, 20));
        m_at += static_cast<std::size_t>(end - begin);
        Argument().numbers.push_back(number);
    }

    void Check(bool fine, const std::string& otherwise)
    {
        if (!fine && m_file.faults.empty()) {
            m_file.faults.push_back(otherwise + " at " + std::to_string(m_at));
        }
    }

    const std::string& m_text;
    RibFile& m_file;
    std::size_t m_at = 0;
    bool m_inArray = false;
};

std::string LastWord(const std::string& declaration)
{
    return declaration.substr(declaration.rfind(' ') + 1);
}

}  // namespace

std::string RibRequest::Text(std::size_t index) const
{
    return index < arguments.size() && !arguments[index].strings.empty()
               ? arguments[index].strings.front()
               : std::string();
}

std::vector<float> RibRequest::Numbers() const
{
    std::vector<float> numbers;
    for (const RibArgument& argument : arguments) {
        numbers.insert(numbers.end(), argument.numbers.begin(), argument.numbers.end());
    }
    return numbers;
}

const RibArgument* RibRequest::Parameter(std::string_view parameter) const
{
    for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
        if (!arguments[i].isArray && LastWord(Text(i)) == parameter) {
            return &arguments[i + 1];
        }
    }
    return nullptr;
}

const RibRequest* RibFile::Find(std::string_view name) const
{
    const auto found = std::find_if(requests.begin(), requests.end(),
                                    [&](const RibRequest& r) { return r.name == name; });
    return found == requests.end() ? nullptr : &*found;
}

std::vector<const RibRequest*> RibFile::All(std::string_view name) const
{
    std::vector<const RibRequest*> all;
    for (const RibRequest& request : requests) {
        if (request.name == name) {
            all.push_back(&request);
        }
    }
    return all;
}

RibFile ReadRib(const std::string& text)
{
    RibFile file;
    const Tokens tokens(text, file);
    if (!text.starts_with("##RenderMan RIB-Structure 1.1\n")) {
        file.faults.emplace_back("no header");
    }
    return file;
}

}  // namespace StudioRaytraceTest
