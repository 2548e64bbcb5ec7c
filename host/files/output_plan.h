// Which drawing of a call is written to which files, settled before anything is read or written.
#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace brindle::host {

// The path that stands for standard output.
inline constexpr char kStandardOutput[] = "-";

struct PlannedJob {
    std::string drawing;
    std::string nc_path;                           // of the only segment; SegmentPath gives those of several
    std::string trace_path = {};                   // empty for none
    std::optional<std::string> drawing_text = {};  // what has been read of the drawing already
};

struct OutputRequest {
    std::vector<std::string> drawings;
    std::string nc;                   // as given, empty if not
    std::string trace;                // likewise
    std::vector<std::string> inputs;  // files of the call that must not be overwritten, other than the drawings
};

// The files that a call reads and writes, each known by its true name, so that nothing is written over. Outputs may be
// added by several threads.
class CFileRoles {
public:
    void AddInput(const std::string& path);
    // Takes the output file of a drawing in. What is wrong with it, if it is an input or another drawing's output;
    // empty if nothing is. Devices may be written by all.
    std::string AddOutput(const std::string& path, const std::string& drawing);

private:
    std::unordered_set<std::string> inputs_;
    std::unique_ptr<std::mutex> lock_ = std::make_unique<std::mutex>();  // of the outputs
    std::unordered_map<std::string, std::string> outputs_;               // and the drawing
};

// A plan, or what is wrong with the request.
struct OutputPlan {
    std::vector<PlannedJob> jobs;
    CFileRoles roles;  // with the inputs and with what `jobs` name
    std::string fault;
    bool lacks_folder = false;  // what is wrong is the disk, where a folder is not there, and not the request
};

// One drawing goes to the file that was asked for, or into the folder, or into the current folder under its own name
// with the extension `.nc` (a trace: `.trace`); several can't go to one file. A drawing from standard input goes to
// standard output. No two jobs may write the same file, none may write what the call reads, and standard input is read
// once. Folders must be there.
OutputPlan PlanOutput(const OutputRequest& request);

// The file of segment `number`, from 1, of `count`: the path itself if there is one, else `box-1.nc`, `box-2.nc`. All
// segments for standard output or a device go to the same place.
std::string SegmentPath(const std::string& path, size_t number, size_t count);

// Whether `path` is written straight, piece after piece: standard output and whatever is no regular file.
bool IsStream(const std::string& path);

}  // namespace brindle::host
