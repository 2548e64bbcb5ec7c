// The files of one job, written all or none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle::host {

// Takes the contents of files into temporary ones beside them, and puts all in place with Commit. A file that is there
// is replaced in one step and keeps its permissions. Without Commit, or if it fails, nothing is left of the job.
class COutputFiles {
public:
    COutputFiles() = default;
    COutputFiles(const COutputFiles&) = delete;
    COutputFiles& operator=(const COutputFiles&) = delete;
    ~COutputFiles();

    // Prepares `path`, `-` for standard output. False, with a message printed, if it can't be written. Standard output
    // and devices get their text in Commit; `text` must live until then.
    bool Add(const std::string& path, std::string_view text);
    // False, with a message printed, if it failed.
    bool Commit();

private:
    struct File {
        std::string path;       // as the user knows it
        std::string target;     // behind links
        std::string temporary;  // empty once it is in place
        bool in_place = false;
    };
    struct Stream {
        std::string path;
        std::string_view text;
    };

    static bool WriteTemporary(File& file, std::string_view text);
    static bool WriteStream(const Stream& stream);

    std::vector<File> files_;
    std::vector<Stream> streams_;
    bool committed_ = false;
};

}  // namespace brindle::host
