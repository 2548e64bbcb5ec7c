#include "host/files/input_file.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "host/console/messages.h"
#include "platform/text_encoding.h"
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

// Whether the library, given `path`, would read what we have read.
bool CanBeReadAgain(const std::string& path) {
    std::error_code error;
    return path != kStandardInput && fs::is_regular_file(path, error) && AsUtf8(path) == path;
}

}  // namespace

std::optional<std::string> ReadInputFile(const std::string& path) {
    if (path == kStandardInput) return ReadStandardInput();
    std::optional<std::string> text = ReadWholeFile(path);
    if (!text) PrintError({path}, WhyUnreadable(path));
    return text;
}

CLibraryInput::~CLibraryInput() {
    if (!copy_.empty()) ::unlink(copy_.c_str());
}

bool CLibraryInput::Open(const std::string& path) {
    std::optional<std::string> text = ReadInputFile(path);
    if (!text) return false;
    path_ = path;
    text_ = std::move(*text);
    return CanBeReadAgain(path) || Copy();
}

bool CLibraryInput::Copy() {
    std::error_code error;
    std::string name = (fs::temp_directory_path(error) / "brindle-XXXXXX").string();
    const int descriptor = error ? -1 : ::mkstemp(name.data());
    if (descriptor >= 0) {
        ::close(descriptor);
        copy_ = name;
        std::ofstream file(copy_, std::ios::binary);
        file.write(text_.data(), static_cast<std::streamsize>(text_.size()));
        if (file.flush()) return true;
    }
    PrintError({path_}, "can't be copied into a temporary file");
    return false;
}

}  // namespace brindle::host
