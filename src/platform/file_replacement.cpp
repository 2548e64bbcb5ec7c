#include "platform/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <set>
#include <system_error>

#include "platform/text_file.h"

namespace brindle {
namespace {

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// A hidden name beside `target` that no other call of this process gets.
std::string NameBeside(const std::string& target) {
    constexpr size_t kLongestStem = 200;  // of the 255 bytes that a name may have
    static std::atomic<unsigned> count = 0;
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    const std::string stem = target.substr(folder.size(), kLongestStem);
    return folder + "." + stem + "." + std::to_string(::getpid()) + "-" + std::to_string(count++) + ".tmp";
}

// The bytes must be on the disk before they get the file's name: else a power cut could leave an empty file.
int FillAndClose(int descriptor, std::string_view text) {
    int error = WriteAll(descriptor, text);
    if (error == 0 && ::fsync(descriptor) != 0) error = errno;
    return ::close(descriptor) != 0 && error == 0 ? errno : error;
}

// Writes a new file beside `target`, with its permissions if it exists. `name` is set as soon as there is a file.
int WriteBeside(const std::string& target, std::string_view text, unsigned permissions, std::string& name) {
    std::string free_name;
    int descriptor = -1;
    do {  // a killed process of the same number may have left files
        free_name = NameBeside(target);
        descriptor = ::open(free_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    } while (descriptor < 0 && errno == EEXIST);
    if (descriptor < 0) return errno;
    name = free_name;
    struct stat status = {};
    if (::lstat(target.c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
        (void)::fchmod(descriptor, status.st_mode & 07777U);
    }
    return FillAndClose(descriptor, text);
}

// New names are in the folder on the disk, as far as its file system can promise that.
void FlushFolder(const std::string& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    (void)::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace

std::string TargetOf(const std::string& path) {
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

int WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        text.remove_prefix(static_cast<size_t>(written));
    }
    return 0;
}

// An old file that can't come back keeps its other name: it may be the only one.
CFileReplacement::~CFileReplacement() {
    for (auto file = files_.rbegin(); file != files_.rend(); ++file) {
        const bool settled = committed_ || TakeBack(*file);
        if (settled && !file->old.empty()) ::unlink(file->old.c_str());
        if (!file->temporary.empty()) ::unlink(file->temporary.c_str());
    }
}

int CFileReplacement::Add(const std::string& target, std::string_view text, unsigned permissions) {
    File& file = files_.emplace_back();
    file.target = target;
    return WriteBeside(target, text, permissions, file.temporary);
}

// Gives the old file a second name, so that it can come back if a later file fails. Where there are no hard links, a
// copy does. A folder is left to the rename, which fails.
int CFileReplacement::KeepOld(File& file) {
    struct stat status = {};
    if (::lstat(file.target.c_str(), &status) != 0 || S_ISDIR(status.st_mode)) return 0;
    const std::string name = NameBeside(file.target);
    if (::link(file.target.c_str(), name.c_str()) == 0) {
        file.old = name;
        return 0;
    }
    const std::optional<std::string> text = ReadWholeFile(file.target);
    return text ? WriteBeside(file.target, *text, S_IRUSR | S_IWUSR, file.old) : EACCES;
}

bool CFileReplacement::TakeBack(const File& file) {
    if (!file.in_place) return true;
    const char* const target = file.target.c_str();
    return (file.old.empty() ? ::unlink(target) : std::rename(file.old.c_str(), target)) == 0;
}

CFileReplacement::Fault CFileReplacement::Commit() {
    std::set<std::string> folders;
    for (size_t i = 0; i < files_.size(); ++i) {
        File& file = files_[i];
        const bool is_last = i + 1 == files_.size();
        if (const int error = is_last ? 0 : KeepOld(file); error != 0) return {error, i};
        if (std::rename(file.temporary.c_str(), file.target.c_str()) != 0) return {errno, i};
        file.temporary.clear();
        file.in_place = true;
        folders.insert(FolderOf(file.target));
    }
    committed_ = true;
    for (const std::string& folder : folders) FlushFolder(folder);
    return {};
}

}  // namespace brindle
