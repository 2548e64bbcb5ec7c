// Input files of the command: read with a message where that fails, and handed to the library by path.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindle::host {

// The path that stands for standard input.
inline constexpr std::string_view kStandardInput = "-";

// The bytes of the file at `path`, `-` for standard input. Nothing, with a message printed, if it can't be read.
std::optional<std::string> ReadInputFile(const std::string& path);

// An input file that the library opens itself. The library reads it behind us and takes its path as characters, so
// standard input, a pipe, and a file whose name is no UTF-8 are copied into a temporary file first, which lives as long
// as the object.
class CLibraryInput {
public:
    CLibraryInput() = default;
    CLibraryInput(const CLibraryInput&) = delete;
    CLibraryInput& operator=(const CLibraryInput&) = delete;
    ~CLibraryInput();

    // Reads the file at `path`. False, with a message printed, if that or the copy fails.
    bool Open(const std::string& path);

    const std::string& text() const { return text_; }
    // What the library is to open.
    const std::string& path() const { return copy_.empty() ? path_ : copy_; }

private:
    bool Copy();

    std::string path_;
    std::string text_;
    std::string copy_;
};

}  // namespace brindle::host
