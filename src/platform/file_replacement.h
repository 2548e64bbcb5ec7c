// Files replaced as wholes, for all who write files.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// Writes all of `text` to an open file. 0, or the error number.
int WriteAll(int descriptor, std::string_view text);

// What a rename to `path` is to replace: the file behind a link, not the link.
std::string TargetOf(const std::string& path);

// Replaces files, all or none of them, each in one step: whoever reads one, after a crash too, finds the old or the new
// text. Texts go into hidden temporary files beside their targets and to the disk; Commit gives these the targets'
// names. A process that is killed in Commit can leave the first files new and the others old, and hidden files
// `.NAME.PID-N.tmp`, which nothing reads. Any number of threads may replace files, each with an object of its own.
class CFileReplacement {
public:
    CFileReplacement() = default;
    CFileReplacement(const CFileReplacement&) = delete;
    CFileReplacement& operator=(const CFileReplacement&) = delete;
    // Without a successful Commit, all is as it was before.
    ~CFileReplacement();

    // Takes the text of the file at `target`, which need not exist. It keeps the permissions that it has; a new one
    // gets `permissions`, less the user's mask. 0, or the error number.
    int Add(const std::string& target, std::string_view text, unsigned permissions);

    // What kept a file from its place.
    struct Fault {
        int error = 0;     // 0 for none
        size_t index = 0;  // of the file, in the order of Add
    };
    Fault Commit();

private:
    struct File {
        std::string target;
        std::string temporary;  // empty once it is in place
        std::string old;        // what was there before, under another name; empty if nothing was, or it is not kept
        bool in_place = false;
    };

    static int KeepOld(File& file);
    // Makes the target what it was before; false if that fails.
    static bool TakeBack(const File& file);

    std::vector<File> files_;
    bool committed_ = false;
};

}  // namespace brindle
