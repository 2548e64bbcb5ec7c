#include "platform/text_file.h"

#include <array>
#include <cstdio>
#include <memory>

namespace brindle {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (!file) return std::nullopt;
    std::string text;
    std::array<char, 65536> chunk;
    size_t count = 0;
    while ((count = std::fread(chunk.data(), 1, chunk.size(), file.get())) > 0) text.append(chunk.data(), count);
    if (std::ferror(file.get()) != 0) return std::nullopt;
    return text;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

}  // namespace brindle
