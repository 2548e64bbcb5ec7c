#include "host/files/output_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "host/console/messages.h"
#include "host/files/output_plan.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

bool Fail(const std::string& path, int error) {
    PrintError({path == kStandardOutput ? "standard output" : path},
               "can't be written: " + std::generic_category().message(error));
    return false;
}

// 0, or the error number.
int WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        text.remove_prefix(static_cast<size_t>(written));
    }
    return 0;
}

int WriteAndClose(int descriptor, std::string_view text) {
    const int error = WriteAll(descriptor, text);
    const int close_error = ::close(descriptor) == 0 ? 0 : errno;
    return error != 0 ? error : close_error;
}

// A new file beside `target`; -1 with errno set if that fails.
int CreateBeside(const fs::path& target, std::string& name) {
    constexpr mode_t kOpenToAll = 0666;  // less the user's mask
    std::string stem(".");
    stem.append(target.filename().string(), 0, 200).append(".").append(std::to_string(::getpid())).append("-");
    for (int attempt = 0;; ++attempt) {
        name = (target.parent_path() / (stem + std::to_string(attempt) + ".tmp")).string();
        const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOpenToAll);
        if (descriptor >= 0 || errno != EEXIST) return descriptor;
    }
}

// What a rename is to replace: the file behind a link, not the link.
std::string TargetOf(const std::string& path) {
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    return error ? path : real.string();
}

// 0, or the error number.
int CheckReplaceable(const std::string& target) {
    std::error_code error;
    if (fs::is_directory(target, error)) return EISDIR;
    return ::access(target.c_str(), F_OK) == 0 && ::access(target.c_str(), W_OK) != 0 ? errno : 0;
}

void CopyPermissions(const std::string& from, int to) {
    struct stat status = {};
    if (::stat(from.c_str(), &status) == 0) (void)::fchmod(to, status.st_mode & 07777U);
}

}  // namespace

COutputFiles::~COutputFiles() {
    for (const File& file : files_) {
        if (!file.temporary.empty()) ::unlink(file.temporary.c_str());
        if (file.in_place && !committed_) ::unlink(file.target.c_str());
    }
}

bool COutputFiles::Add(const std::string& path, std::string_view text) {
    if (IsStream(path)) {
        streams_.push_back({path, text});
        return true;
    }
    File& file = files_.emplace_back(File{path, TargetOf(path), {}, false});
    const int error = CheckReplaceable(file.target);
    return error != 0 ? Fail(path, error) : WriteTemporary(file, text);
}

bool COutputFiles::WriteTemporary(File& file, std::string_view text) {
    std::string name;
    const int descriptor = CreateBeside(file.target, name);
    if (descriptor < 0) return Fail(file.path, errno);
    file.temporary = name;
    CopyPermissions(file.target, descriptor);
    const int error = WriteAndClose(descriptor, text);
    return error == 0 || Fail(file.path, error);
}

// Streams come first: what they have been given can't be taken back.
bool COutputFiles::Commit() {
    if (!std::all_of(streams_.begin(), streams_.end(), WriteStream)) return false;
    for (File& file : files_) {
        if (::rename(file.temporary.c_str(), file.target.c_str()) != 0) return Fail(file.path, errno);
        file.temporary.clear();
        file.in_place = true;
    }
    committed_ = true;
    return true;
}

bool COutputFiles::WriteStream(const Stream& stream) {
    int error = 0;
    if (stream.path == kStandardOutput) {
        error = WriteAll(STDOUT_FILENO, stream.text);
    } else {
        const int descriptor = ::open(stream.path.c_str(), O_WRONLY | O_CLOEXEC);
        error = descriptor < 0 ? errno : WriteAndClose(descriptor, stream.text);
    }
    return error == 0 || Fail(stream.path, error);
}

}  // namespace brindle::host
