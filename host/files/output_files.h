// The files of one job, written all or none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_replacement.h"

namespace brindle::host {

// Takes the contents of files into temporary ones beside them, and puts all in place with Commit. A file that is there
// is replaced in one step and keeps its permissions. Without Commit, or if it fails, nothing is left of the job, and
// files from before are there as they were.
class COutputFiles {
public:
    // Prepares `path`, `-` for standard output. False, with a message printed, if it can't be written. Standard output
    // and devices get their text in Commit; `text` must live until then.
    bool Add(const std::string& path, std::string_view text);
    // False, with a message printed, if it failed.
    bool Commit();

private:
    struct Stream {
        std::string path;
        std::string_view text;
    };

    static bool WriteStream(const Stream& stream);

    CFileReplacement files_;
    std::vector<std::string> paths_;  // of files_, as the user knows them
    std::vector<Stream> streams_;
};

}  // namespace brindle::host
