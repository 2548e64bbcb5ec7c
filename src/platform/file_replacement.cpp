#include "platform/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <functional>
#include <set>

namespace brindle {
namespace {

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// Calls `take` with hidden names beside `target` until it gets one that is free. 0, or the error number.
int TakeNameBeside(const std::string& target, std::string& name, const std::function<bool(const char*)>& take) {
    constexpr size_t kLongestStem = 200;  // of the 255 bytes that a name may have
    const size_t slash = target.rfind('/');
    const size_t stem = slash == std::string::npos ? 0 : slash + 1;
    const std::string start =
        target.substr(0, stem) + "." + target.substr(stem, kLongestStem) + "." + std::to_string(::getpid()) + "-";
    for (int attempt = 0;; ++attempt) {
        name = start + std::to_string(attempt) + ".tmp";
        if (take(name.c_str())) return 0;
        if (errno != EEXIST) return errno;
    }
}

// A new file beside `target`. 0, or the error number.
int CreateBeside(const std::string& target, unsigned permissions, std::string& name, int& descriptor) {
    return TakeNameBeside(target, name, [&descriptor, permissions](const char* path) {
        descriptor = ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
        return descriptor >= 0;
    });
}

void CopyPermissions(const std::string& from, int to) {
    struct stat status = {};
    if (::stat(from.c_str(), &status) == 0) (void)::fchmod(to, status.st_mode & 07777U);
}

// The bytes must be on the disk before they get the file's name: else a power cut could leave an empty file.
int FillAndClose(int descriptor, std::string_view text) {
    int error = WriteAll(descriptor, text);
    if (error == 0 && ::fsync(descriptor) != 0) error = errno;
    return ::close(descriptor) != 0 && error == 0 ? errno : error;
}

// New names are in the folder on the disk, as far as its file system can promise that.
void FlushFolder(const std::string& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    (void)::fsync(descriptor);
    ::close(descriptor);
}

bool IsRegularFile(const std::string& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

int WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        text.remove_prefix(static_cast<size_t>(written));
    }
    return 0;
}

CFileReplacement::~CFileReplacement() {
    for (auto file = files_.rbegin(); file != files_.rend(); ++file) {
        if (!committed_) TakeBack(*file);
        if (!file->old.empty()) ::unlink(file->old.c_str());
        if (!file->temporary.empty()) ::unlink(file->temporary.c_str());
    }
}

int CFileReplacement::Add(const std::string& target, std::string_view text, unsigned permissions) {
    File& file = files_.emplace_back();
    file.target = target;
    std::string name;
    int descriptor = -1;
    const int error = CreateBeside(target, permissions, name, descriptor);
    if (error != 0) return error;
    file.temporary = name;
    CopyPermissions(target, descriptor);
    return FillAndClose(descriptor, text);
}

// Gives the old file a second name, so that it can come back if a later file fails. Where a file can have one name
// alone, it gets the other one, and is away until the new one comes.
int CFileReplacement::KeepOld(File& file) {
    if (!IsRegularFile(file.target)) return 0;
    const char* const target = file.target.c_str();
    std::string name;
    int error = TakeNameBeside(file.target, name, [target](const char* path) { return ::link(target, path) == 0; });
    if (error != 0) {
        int descriptor = -1;
        error = CreateBeside(file.target, 0600, name, descriptor);
        if (error != 0) return error;
        ::close(descriptor);
        if (std::rename(target, name.c_str()) != 0) error = errno;
    }
    if (error == 0) {
        file.old = name;
    } else {
        ::unlink(name.c_str());
    }
    return error;
}

void CFileReplacement::TakeBack(const File& file) {
    if (!file.old.empty()) {
        (void)std::rename(file.old.c_str(), file.target.c_str());
    } else if (file.in_place) {
        ::unlink(file.target.c_str());
    }
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
