#include "host/post/post_job.h"

#include <filesystem>

#include "api/brindle_mgr.h"
#include "brindle/brindle.h"
#include "host/console/drawing_report.h"
#include "host/console/messages.h"
#include "host/console/progress_line.h"
#include "host/files/output_files.h"
#include "host/post/run_report.h"

namespace brindle::host {
namespace {

// The name of a file as NC text may show it, without its folders; none for a stream.
std::string NameOf(const std::string& path) {
    return path == kStandardInput ? std::string() : std::filesystem::path(path).filename().string();
}

double Count(size_t count) { return static_cast<double>(count); }

class CPostJob {
public:
    CPostJob(const PlannedJob& planned, const LoadedTuning& tuning, const JobOptions& options, CFileRoles& roles)
        : planned_(planned), tuning_(tuning), options_(options), roles_(roles) {}

    bool Run(const std::string& progress) {
        if (!drawing_.Open(planned_.drawing)) return false;
        if (!ReportOnDrawing(planned_.drawing, drawing_.text(), &tuning_.options, survey_)) return false;
        ExpressionValues values;
        if (!SettleExpressions(tuning_, options_.run_data, Values(), values)) return false;
        {
            const CProgressLine line(progress);
            GBrn_Clear();
            SendTuning(tuning_, options_.run_data, values);
            SendJobData();
            SendDrawing();
            GBrn_End();
        }
        PrintRunMessages(CBrindleMgr::Current().trace, planned_.drawing, options_.verbose);
        const bool written = Write(FetchNcText(options_.encoding));
        GBrn_Clear();
        return written;
    }

private:
    Place InDrawing(size_t line) const { return {planned_.drawing, line}; }

    JobValues Values() const {
        const Point blank = options_.blank.value_or(Point{});
        const Point final_position = options_.final_position.value_or(Point{});
        return {.blank_x = blank.x,
                .blank_y = blank.y,
                .size_x = survey_.corner.x,
                .size_y = survey_.corner.y,
                .final_x = final_position.x,
                .final_y = final_position.y,
                .tile = static_cast<double>(options_.tile),
                .inches = options_.inches.value_or(survey_.inches) ? 1.0 : 0.0,
                .tools = Count(survey_.tools.size()),
                .lines = Count(survey_.lines),
                .arcs = Count(survey_.arcs),
                .texts = Count(survey_.texts),
                .calls = Count(survey_.calls),
                .subs = Count(survey_.subs)};
    }

    void SendJobData() const {
        GBrn_SetTuningFileName(Wide(options_.tuning_name.value_or(NameOf(tuning_.file.path))).c_str());
        GBrn_SetFileName(Wide(options_.drawing_name.value_or(NameOf(planned_.drawing))).c_str());
        GBrn_SetOutputName(Wide(options_.output_name.value_or(NameOf(planned_.nc_path))).c_str());
        GBrn_SetDate(Wide(options_.date).c_str());
        GBrn_SetTime(Wide(options_.time).c_str());
        GBrn_SetMaterialFile(Wide(options_.material).c_str());
        GBrn_SetDataSetName(Wide(options_.dataset).c_str());
        GBrn_SetTuneMenuPick(Wide(options_.tuning_pick).c_str());
        GBrn_SetTileToOutput(options_.tile);
        if (options_.blank) GBrn_SetBlankSize(options_.blank->x, options_.blank->y);
        if (options_.final_position) GBrn_SetFinalPosition(options_.final_position->x, options_.final_position->y);
        // A new session is metric, so this radius is millimetres whatever the units become.
        if (options_.rotary_radius) GBrn_SetRotaryRadius(*options_.rotary_radius);
    }

    // The drawing's own unit records set the units too; the user's word comes last.
    void SendDrawing() const {
        GBrn_OpenCF2File(Wide(drawing_.path()).c_str());
        if (options_.inches) GBrn_SetAutoUnitsToInches(*options_.inches ? 1 : 0);
    }

    bool Write(const NcText& nc) {
        if (!nc.fault.empty()) {
            PrintError(InDrawing(0), nc.fault + ": no NC file written");
            return false;
        }
        std::string trace;  // is there until the files are
        COutputFiles files;
        for (size_t i = 0; i < nc.segments.size(); ++i) {
            const std::string path = SegmentPath(planned_.nc_path, i + 1, nc.segments.size());
            if (!MayWriteSegment(path) || !files.Add(path, nc.segments[i])) return false;
        }
        if (!planned_.trace_path.empty()) {
            trace = TraceText(CBrindleMgr::Current().trace);
            if (!files.Add(planned_.trace_path, trace)) return false;
        }
        if (!files.Commit()) return false;
        PrintNotes(nc);
        return true;
    }

    // The path of the only segment is in the plan; those of several are known now.
    bool MayWriteSegment(const std::string& path) {
        if (path == planned_.nc_path) return true;
        const std::string fault = roles_.AddOutput(path, planned_.drawing);
        if (!fault.empty()) PrintError({}, fault);
        return fault.empty();
    }

    void PrintNotes(const NcText& nc) const {
        const size_t count = nc.segments.size();
        if (count == 1 && nc.segments[0].empty()) PrintWarning(InDrawing(0), "the tuning gives no NC text");
        if (nc.dwells > 0) {
            PrintNote(InDrawing(0), Counted(nc.dwells, "dwell marker") + " left out of the NC file");
        }
        if (count < 2) return;
        const std::string segments = std::to_string(count) + " segments";
        if (IsStream(planned_.nc_path)) {
            PrintNote(InDrawing(0), segments + ", each a complete NC file, written one behind the other");
        } else {
            PrintNote(InDrawing(0), segments + ": " + SegmentPath(planned_.nc_path, 1, count) + " to " +
                                        SegmentPath(planned_.nc_path, count, count));
            NoteLeftover(SegmentPath(planned_.nc_path, count + 1, count));
            NoteLeftover(planned_.nc_path);
        }
    }

    // A file of an earlier job that looks like a part of this one would be run with it.
    static void NoteLeftover(const std::string& path) {
        std::error_code error;
        if (std::filesystem::exists(path, error)) PrintWarning({path}, "is older and no part of this job");
    }

    const PlannedJob& planned_;
    const LoadedTuning& tuning_;
    const JobOptions& options_;
    CFileRoles& roles_;
    CLibraryInput drawing_;
    DrawingSurvey survey_;
};

}  // namespace

bool RunPostJob(const PlannedJob& planned, const LoadedTuning& tuning, const JobOptions& options, CFileRoles& roles,
                const std::string& progress) {
    return CPostJob(planned, tuning, options, roles).Run(progress);
}

}  // namespace brindle::host
