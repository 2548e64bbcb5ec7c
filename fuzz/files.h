// Files of a fuzzer: in memory where a path to read from is enough, in a folder of its own where files are written.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

// A file in memory that has a path as long as this lives.
class CMemoryFile {
public:
    explicit CMemoryFile(std::string_view text) : descriptor_(::memfd_create("input", 0)) {
        if (::write(descriptor_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) std::abort();
    }
    ~CMemoryFile() { ::close(descriptor_); }
    CMemoryFile(const CMemoryFile&) = delete;
    CMemoryFile& operator=(const CMemoryFile&) = delete;
    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

// The working folder of the process: a new one, in memory where there is such a file system.
class CWorkFolder {
public:
    CWorkFolder() {
        std::string name =
            std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
        name += "/brindle_fuzz_XXXXXX";
        if (::mkdtemp(name.data()) == nullptr || ::chdir(name.c_str()) != 0) std::abort();
        path_ = name;
    }
    ~CWorkFolder() { std::filesystem::remove_all(path_); }
    CWorkFolder(const CWorkFolder&) = delete;
    CWorkFolder& operator=(const CWorkFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }
    void Empty() const {
        for (const auto& entry : std::filesystem::directory_iterator(path_)) std::filesystem::remove_all(entry);
    }

private:
    std::filesystem::path path_;
};
