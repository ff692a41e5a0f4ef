#include "JobEnd.h"

#include "RenderProgress.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace CorvexMaterial {

namespace {

constexpr std::string_view kFullDisk = "No space is left in ";
constexpr std::uintmax_t kLeastSpace = 65536;
constexpr std::int32_t kSignalCodes = 128;
constexpr std::size_t kLastLines = 3;
constexpr std::size_t kLongestWords = 600;

std::vector<std::string_view> LinesOf(std::string_view messages, std::string_view usual)
{
    std::vector<std::string_view> lines;
    while (!messages.empty()) {
        const std::string_view line = messages.substr(0, messages.find('\n'));
        if (!line.empty() && (usual.empty() || line.find(usual) == std::string_view::npos)) {
            lines.push_back(line);
        }
        messages.remove_prefix(std::min(line.size() + 1, messages.size()));
    }
    return lines;
}

/// From the reason on; empty when no line has it.
std::string_view From(std::string_view reason, const std::vector<std::string_view>& lines)
{
    for (const std::string_view line : lines) {
        if (const std::size_t at = line.find(reason); at != std::string_view::npos) {
            return line.substr(at);
        }
    }
    return {};
}

std::string LastWords(std::string_view messages, const OutputFacts& output)
{
    if (const std::string_view error = ErrorLineIn(messages); !error.empty()) {
        return std::string(error);
    }
    const std::vector<std::string_view> lines = LinesOf(messages, output.usual);
    // The launcher says it.
    std::string_view complaint = From(kFullDisk, lines);
    for (const std::string_view reason : output.complaints) {
        complaint = complaint.empty() ? From(reason, lines) : complaint;
    }
    if (!complaint.empty()) {
        return std::string(complaint);
    }
    std::string words;
    for (std::size_t i = lines.size() - std::min(lines.size(), kLastLines); i < lines.size(); ++i) {
        words.append(words.empty() ? "" : " | ").append(lines[i]);
    }
    return words;
}

/// No half a letter at its end.
std::string Cut(std::string text)
{
    if (text.size() > kLongestWords) {
        std::size_t end = kLongestWords;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
            --end;
        }
        text.replace(end, std::string::npos, "...");
    }
    return text;
}

std::string SizeText(const CorvexViewport::PixelSize& size)
{
    return std::to_string(size.width) + " by " + std::to_string(size.height);
}

std::string Verdict(const JobEnd& end)
{
    const std::string code = "exit code " + std::to_string(end.exitCode);
    if (end.crashed) {
        return "The raytracer crashed.";
    }
    if (end.exitCode > kSignalCodes) {
        return "The raytracer crashed (" + code + ").";
    }
    if (end.exitCode != 0) {
        return "The raytracer ended with " + code + '.';
    }
    if (!end.output.exitCodeTells && !ErrorLineIn(end.messages).empty()) {
        return "The raytracer reports an error.";
    }
    if (!end.picture) {
        return "The raytracer made no picture (" + code + ").";
    }
    if (end.picture->width != end.wanted.width || end.picture->height != end.wanted.height) {
        return "The raytracer made a picture of " + SizeText(*end.picture) + " pixels instead of " +
               SizeText(end.wanted) + '.';
    }
    return {};
}

}  // namespace

std::string FullDiskText(const std::string& folder)
{
    std::error_code error;
    const std::uintmax_t room = std::filesystem::space(folder, error).available;
    return error || room >= kLeastSpace ? std::string() : std::string(kFullDisk) + folder + '.';
}

std::string FailureOf(const JobEnd& end)
{
    std::string text = Verdict(end);
    if (text.empty()) {
        return text;
    }
    const std::string full = FullDiskText(end.folder);
    text.append(full.empty() ? "" : " ").append(full);
    const std::string words = Cut(LastWords(end.messages, end.output));
    return words.empty() ? text : text + " It says: " + words;
}

}  // namespace CorvexMaterial
