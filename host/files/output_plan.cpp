#include "host/files/output_plan.h"

#include <algorithm>
#include <filesystem>

#include "host/files/input_file.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

// The path under which a file is known, through links and folders that may not be there.
std::string TrueName(const std::string& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    const fs::path name = fs::weakly_canonical(absolute, error);
    return (error ? absolute.lexically_normal() : name).string();
}

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

std::string NameWith(const std::string& drawing, const char* extension) {
    const fs::path stem = drawing == kStandardInput ? fs::path("stdin") : fs::path(drawing).stem();
    return stem.string() + extension;
}

std::string PathFor(const std::string& drawing, const std::string& asked, const char* extension) {
    if (asked == "/dev/stdout") return kStandardOutput;
    if (asked.empty()) return drawing == kStandardInput ? kStandardOutput : NameWith(drawing, extension);
    return IsFolder(asked) ? (fs::path(asked) / NameWith(drawing, extension)).string() : asked;
}

bool Exists(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error);
}

// Of a file there for several drawings; one that is not there at all may be meant as a folder.
std::string FaultOfSeveral(const OutputRequest& request, const std::string& asked, const char* option) {
    if (request.drawings.size() < 2 || asked.empty() || IsFolder(asked) || !Exists(asked)) return {};
    return std::string(option) + " " + asked + ": with several drawings this must be a folder";
}

// The name of the folder that is not there for `asked`, empty if none is missing.
std::string MissingFolder(const OutputRequest& request, const std::string& asked) {
    if (asked.empty() || IsFolder(asked) || IsStream(asked)) return {};
    if (request.drawings.size() > 1 && !Exists(asked)) return asked;
    const fs::path folder = fs::path(asked).parent_path();
    return folder.empty() || IsFolder(folder.string()) ? std::string() : folder.string();
}

std::string FaultOfStandardInput(const OutputRequest& request) {
    const auto is_standard = [](const std::string& path) { return path == kStandardInput; };
    const auto count = std::count_if(request.inputs.begin(), request.inputs.end(), is_standard) +
                       std::count_if(request.drawings.begin(), request.drawings.end(), is_standard);
    return count > 1 ? "standard input can be read once only" : "";
}

}  // namespace

void CFileRoles::AddInput(const std::string& path) {
    if (path != kStandardInput) inputs_.insert(TrueName(path));
}

std::string CFileRoles::AddOutput(const std::string& path, const std::string& drawing) {
    const bool is_standard = path == kStandardOutput;
    if (!is_standard && IsStream(path)) return {};
    const std::string name = is_standard ? path : TrueName(path);
    if (inputs_.contains(name)) return path + ": the command reads this file, it would be overwritten";
    const std::lock_guard lock(*lock_);
    const auto [other, is_new] = outputs_.emplace(name, drawing);
    if (is_new) return {};
    return (is_standard ? "standard output" : path) +
           (other->second == drawing ? ": two files of " + drawing : ": " + other->second + " and " + drawing) +
           " would both be written there";
}

OutputPlan PlanOutput(const OutputRequest& request) {
    OutputPlan plan;
    plan.fault = FaultOfStandardInput(request);
    if (plan.fault.empty()) plan.fault = FaultOfSeveral(request, request.nc, "--output");
    if (plan.fault.empty()) plan.fault = FaultOfSeveral(request, request.trace, "--trace");
    for (const std::string& asked : {request.nc, request.trace}) {
        const std::string folder = plan.fault.empty() ? MissingFolder(request, asked) : std::string();
        if (folder.empty()) continue;
        plan.fault = folder + ": no such folder";
        plan.lacks_folder = true;
    }
    for (const std::string& input : request.inputs) plan.roles.AddInput(input);
    for (const std::string& drawing : request.drawings) plan.roles.AddInput(drawing);
    for (const std::string& drawing : request.drawings) {
        PlannedJob job{drawing, PathFor(drawing, request.nc, ".nc"), {}};
        if (!request.trace.empty()) job.trace_path = PathFor(drawing, request.trace, ".trace");
        if (plan.fault.empty()) plan.fault = plan.roles.AddOutput(job.nc_path, drawing);
        if (plan.fault.empty() && !job.trace_path.empty()) plan.fault = plan.roles.AddOutput(job.trace_path, drawing);
        plan.jobs.push_back(std::move(job));
    }
    return plan;
}

std::string SegmentPath(const std::string& path, size_t number, size_t count) {
    if (count < 2 || IsStream(path)) return path;
    const fs::path whole(path);
    const std::string name = whole.stem().string() + "-" + std::to_string(number) + whole.extension().string();
    return (whole.parent_path() / name).string();
}

bool IsStream(const std::string& path) {
    if (path == kStandardOutput) return true;
    // Open descriptors: they may lead to a file, but one that others are writing too.
    for (const char* const descriptors : {"/dev/std", "/dev/fd/", "/proc/"}) {
        if (path.starts_with(descriptors)) return true;
    }
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

}  // namespace brindle::host
