#include "host/files/output_files.h"

#include <fcntl.h>
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

// A reader of standard output that goes away, as after `| head`, knows it and need not be told.
bool Fail(const std::string& path, int error) {
    if (path == kStandardOutput && error == EPIPE) return false;
    PrintError({path == kStandardOutput ? "standard output" : path},
               "can't be written: " + std::generic_category().message(error));
    return false;
}

// 0, or the error number.
int CheckReplaceable(const std::string& target) {
    std::error_code error;
    if (fs::is_directory(target, error)) return EISDIR;
    return ::access(target.c_str(), F_OK) == 0 && ::access(target.c_str(), W_OK) != 0 ? errno : 0;
}

}  // namespace

bool COutputFiles::Add(const std::string& path, std::string_view text) {
    constexpr unsigned kOpenToAll = 0666;  // less the user's mask
    if (IsStream(path)) {
        streams_.push_back({path, text});
        return true;
    }
    const std::string target = TargetOf(path);
    int error = CheckReplaceable(target);
    if (error == 0) error = files_.Add(target, text, kOpenToAll);
    paths_.push_back(path);
    return error == 0 || Fail(path, error);
}

// Streams come first: what they have been given can't be taken back.
bool COutputFiles::Commit() {
    if (!std::all_of(streams_.begin(), streams_.end(), WriteStream)) return false;
    const CFileReplacement::Fault fault = files_.Commit();
    return fault.error == 0 || Fail(paths_[fault.index], fault.error);
}

bool COutputFiles::WriteStream(const Stream& stream) {
    int error = 0;
    if (stream.path == kStandardOutput) {
        error = WriteAll(STDOUT_FILENO, stream.text);
    } else {
        const int descriptor = ::open(stream.path.c_str(), O_WRONLY | O_CLOEXEC);
        error = descriptor < 0 ? errno : WriteAll(descriptor, stream.text);
        if (descriptor >= 0 && ::close(descriptor) != 0 && error == 0) error = errno;
    }
    return error == 0 || Fail(stream.path, error);
}

}  // namespace brindle::host
