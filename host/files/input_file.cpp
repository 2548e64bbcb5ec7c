#include "host/files/input_file.h"

#include <filesystem>
#include <iostream>
#include <iterator>

#include "host/console/messages.h"
#include "platform/text_file.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

std::string WhyUnreadable(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) return "no such file";
    if (fs::is_directory(status)) return "is a folder, not a file";
    return error ? "can't be read: " + error.message() : "can't be read";
}

std::optional<std::string> ReadStandardInput() {
    std::string text(std::istreambuf_iterator<char>(std::cin), {});
    if (!std::cin.bad()) return text;
    PrintError({}, "standard input can't be read");
    return std::nullopt;
}

}  // namespace

std::optional<std::string> ReadInputFile(const std::string& path) {
    if (path == kStandardInput) return ReadStandardInput();
    std::optional<std::string> text = ReadWholeFile(path);
    if (!text && path.empty()) PrintError({}, "the name of a file is empty");
    if (!text && !path.empty()) PrintError({path}, WhyUnreadable(path));
    return text;
}

}  // namespace brindle::host
