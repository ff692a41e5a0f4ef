#include "RibReader.h"

#include "Testing.h"

namespace StudioRaytraceTest {
namespace {

/// Strings in double quotes with backslashes, arrays in brackets, names, numbers; what is none of
/// them nor blank nor a comment is wrong.
class Tokens {
public:
    Tokens(const std::string& text, RibFile& file) : m_file(file)
    {
        static const QRegularExpression kToken(
            R"re(\s+|#[^\r\n]*|(?<string>"(?:[^"\\[:cntrl:]]|\\.)*")|(?<bracket>[][]))re"
            R"re(|(?<name>[A-Za-z]+)|(?<number>[-+]?[\d.]+(?:e[-+]?\d+)?)|(?<other>.))re");
        auto tokens = kToken.globalMatch(QString::fromStdString(text));
        while (tokens.hasNext()) {
            Take(tokens.next());
        }
        Check(!m_inArray, "an array is left open");
    }

private:
    void Take(const QRegularExpressionMatch& token)
    {
        if (const QString name = token.captured(u"name"); !name.isEmpty()) {
            Check(!m_inArray, "a name in an array");
            m_file.requests.push_back({name.toStdString(), {}});
        } else if (m_file.requests.empty()) {
            Check(QString("# \n").contains(token.captured(0)[0]), "nothing is requested yet");
        } else if (QString string = token.captured(u"string"); !string.isEmpty()) {
            static const QRegularExpression kEscaped(R"re(\\(.))re");
            Argument().strings.push_back(
                string.mid(1, string.size() - 2).replace(kEscaped, "\\1").toStdString());
        } else if (const QString bracket = token.captured(u"bracket"); !bracket.isEmpty()) {
            Check(m_inArray == (bracket == u"]"), "a bracket too many");
            m_inArray = bracket == u"[";
            if (m_inArray) {
                m_file.requests.back().arguments.push_back({true, {}, {}});
            }
        } else if (const QString number = token.captured(u"number"); !number.isEmpty()) {
            bool isNumber = false;
            Argument().numbers.push_back(number.toFloat(&isNumber));
            Check(isNumber, "no number: " + number.toStdString());
        } else {
            Check(token.captured(u"other").isEmpty(), token.captured(u"other").toStdString());
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

    void Check(bool fine, const std::string& otherwise)
    {
        if (!fine) {
            m_file.faults.push_back(otherwise);
        }
    }

    RibFile& m_file;
    bool m_inArray = false;
};

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
        if (!arguments[i].isArray && (' ' + Text(i)).ends_with(' ' + std::string(parameter))) {
            return &arguments[i + 1];
        }
    }
    return nullptr;
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

const RibRequest* RibFile::Find(std::string_view name) const
{
    const auto all = All(name);
    return all.empty() ? nullptr : all.front();
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
