#include "RibReader.h"

namespace StudioRaytraceTest {
namespace {

void Require(bool fine, const std::string& otherwise)
{
    if (!fine) {
        throw std::runtime_error(otherwise);
    }
}

std::string Unquoted(const QString& string)
{
    static const QRegularExpression kEscaped(R"re(\\(.))re");
    return string.mid(1, string.size() - 2).replace(kEscaped, "\\1").toStdString();
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
        if ((' ' + Text(i)).ends_with(' ' + std::string(parameter))) {
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
    static const QRegularExpression kToken(
        R"re("(?:[^"\\[:cntrl:]]|\\.)*"|#[^\r\n]*|[][]|[^][\s"#]+|")re");
    Require(text.starts_with("##RenderMan RIB-Structure 1.1\n"), "no header");
    RibFile file;
    bool inArray = false;
    auto tokens = kToken.globalMatch(QString::fromStdString(text));
    while (tokens.hasNext()) {
        const QString token = tokens.next().captured();
        if (token[0] == u'#') {
            continue;
        }
        if (token[0].isLetter()) {
            Require(!inArray, "a name in an array");
            file.requests.push_back({token.toStdString(), {}});
            continue;
        }
        Require(!file.requests.empty(), "nothing is requested yet");
        auto& arguments = file.requests.back().arguments;
        if (token == u"[" || token == u"]") {
            Require(inArray == (token == u"]"), "a bracket too many");
            inArray = !inArray;
            arguments.resize(arguments.size() + (inArray ? 1 : 0));
            continue;
        }
        arguments.resize(arguments.size() + (inArray ? 0 : 1));
        if (token.size() > 1 && token[0] == u'"') {
            arguments.back().strings.push_back(Unquoted(token));
            continue;
        }
        bool isNumber = false;
        arguments.back().numbers.push_back(token.toFloat(&isNumber));
        Require(isNumber && std::isfinite(arguments.back().numbers.back()), token.toStdString());
    }
    Require(!inArray, "an array is left open");
    return file;
}

}  // namespace StudioRaytraceTest
