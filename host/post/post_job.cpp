#include "host/post/post_job.h"

#include <algorithm>
#include <filesystem>
#include <list>
#include <new>
#include <string>
#include <vector>

#include "check/tuning/job_names.h"
#include "host/console/messages.h"
#include "host/console/progress_line.h"
#include "host/files/input_file.h"
#include "host/files/output_files.h"
#include "host/load/loaded_drawing.h"
#include "host/post/loss_report.h"
#include "host/post/run_report.h"
#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

// The name of a file as NC text may show it, without its folders; none for a stream.
std::string NameOf(const std::string& path) {
    return path == kStandardInput ? std::string() : std::filesystem::path(path).filename().string();
}

double Count(size_t count) { return static_cast<double>(count); }

class CPostJob {
public:
    CPostJob(const PlannedJob& planned, const CommonJob& common, CFileRoles& roles)
        : planned_(planned),
          tuning_(common.tuning),
          findings_(common.findings),
          options_(common.options),
          roles_(roles) {}

    JobOutcome Run(const std::string& progress) {
        std::optional<LoadedDrawing> drawing =
            LoadDrawing(planned_.drawing, &tuning_.options, {options_.allowed, options_.comparison.skipped_tools},
                        planned_.drawing_text);
        if (!drawing) return JobOutcome::kNotMade;
        ExpressionValues values;
        if (!SettleExpressions(tuning_, options_.run_data, Values(drawing->survey), values)) {
            TellOfDrawing(*drawing);
            return JobOutcome::kNotMade;
        }
        CJobComparison comparison(options_.comparison);
        const JobResult result = [&] {
            const CProgressLine line(progress);
            SetTuning(session_, tuning_, values);
            ApplySettings(options_.run_data, session_.tuning.definition().datasets());
            SetJobData(session_.Job());
            session_.TakeDrawing(drawing->text);
            // The drawing's own unit records set the units too; the user's word comes last.
            if (options_.inches) session_.Job().auto_inches = *options_.inches;
            return RunJob(session_, &comparison);
        }();
        const size_t name_warnings = CheckJobNames();
        const FindingCounts counts = ReportLosses(comparison.losses(), options_.allowed, *drawing, findings_);
        const size_t run_warnings =
            PrintRunMessages(result, planned_.drawing, options_.fly_ratios, comparison.losses(), options_.allowed);
        if (options_.strict &&
            (counts.losses + counts.warnings + run_warnings + name_warnings > 0 || HasTuningWarning())) {
            if (!options_.only_check) {
                PrintError(InDrawing(0), "warnings count as errors (--strict): no NC file written");
            }
            return JobOutcome::kNotMade;
        }
        if (!Finish(TakeNcText(result.buffers, options_.encoding))) return JobOutcome::kNotMade;
        return counts.losses > 0 ? JobOutcome::kLossy : JobOutcome::kMade;
    }

private:
    bool HasTuningWarning() const { return findings_.Count(Severity::kWarning) > 0; }

    InputLine InDrawing(size_t line) const { return {planned_.drawing, line}; }

    JobValues Values(const DrawingSurvey& survey) const {
        const Point blank = options_.blank.value_or(Point{});
        const Point final_position = options_.final_position.value_or(Point{});
        return {.blank_x = blank.x,
                .blank_y = blank.y,
                .size_x = survey.corner.x,
                .size_y = survey.corner.y,
                .final_x = final_position.x,
                .final_y = final_position.y,
                .tile = static_cast<double>(options_.tile),
                .inches = options_.inches.value_or(survey.inches) ? 1.0 : 0.0,
                .tools = Count(survey.tools.size()),
                .lines = Count(survey.lines),
                .arcs = Count(survey.arcs),
                .texts = Count(survey.texts),
                .calls = Count(survey.calls),
                .subs = Count(survey.subs)};
    }

    // Reports names and run-time data that the tuning writes where they do harm; gives the number of warnings.
    size_t CheckJobNames() {
        const JobData& job = session_.Job();
        std::vector<JobName> names = {{"@CADFile", job.file_name},          {"@OutputFile", job.output_name},
                                      {"@MaterialFile", job.material_file}, {"@TuneFile", job.tuning_file},
                                      {"@TuneMenuPick", job.tuning_pick},   {"@DataSetName", job.dataset_name}};
        std::list<std::string> values;
        for (const auto& [word, item] : session_.run_values.items()) {
            if (session_.run_values.GetText(word, values.emplace_back())) names.push_back({word, values.back()});
        }
        // The tuning is taken apart only where a name is out of the ordinary.
        if (std::none_of(names.begin(), names.end(), [](const JobName& name) { return IsRiskyName(name.text); }))
            return 0;
        CDiagnostics diagnostics(tuning_.file.path, tuning_.file.lines);
        diagnostics.Allow(options_.allowed);
        CheckNames(CPlacedTuning(tuning_.file.lines), names, diagnostics);
        PrintDiagnostics(diagnostics);
        return diagnostics.Count(Severity::kWarning);
    }

    void SetJobData(JobData& job) const {
        job.tuning_file = AsUtf8(options_.tuning_name.value_or(NameOf(tuning_.file.path)));
        job.file_name = AsUtf8(options_.drawing_name.value_or(NameOf(planned_.drawing)));
        job.output_name = AsUtf8(options_.output_name.value_or(NameOf(planned_.nc_path)));
        job.date = AsUtf8(options_.date);
        job.time = AsUtf8(options_.time);
        job.material_file = AsUtf8(options_.material);
        job.dataset_name = AsUtf8(options_.dataset);
        job.tuning_pick = AsUtf8(options_.tuning_pick);
        job.tile_to_output = options_.tile;
        if (options_.blank) job.blank = *options_.blank;
        job.final_position_set = options_.final_position.has_value();
        if (options_.final_position) job.final_position = *options_.final_position;
        if (options_.rotary_radius) job.rotary_radius = *options_.rotary_radius;
    }

    bool Finish(const NcText& nc) {
        if (!nc.fault.empty()) {
            PrintError(InDrawing(0), nc.fault + (options_.only_check ? "" : ": no NC file written"));
            return false;
        }
        if (!options_.only_check) return Write(nc);
        WarnOfNoText(nc);
        return true;
    }

    bool Write(const NcText& nc) {
        std::string trace;  // is there until the files are
        COutputFiles files;
        for (size_t i = 0; i < nc.segments.size(); ++i) {
            const std::string path = SegmentPath(planned_.nc_path, i + 1, nc.segments.size());
            if (!MayWriteSegment(path) || !files.Add(path, nc.segments[i])) return false;
        }
        if (!planned_.trace_path.empty()) {
            trace = TraceText(session_.trace);
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

    void WarnOfNoText(const NcText& nc) const {
        if (nc.segments.size() != 1 || !nc.segments[0].empty()) return;
        PrintWarning(InDrawing(0), "the tuning gives no NC text");
    }

    void PrintNotes(const NcText& nc) const {
        const size_t count = nc.segments.size();
        WarnOfNoText(nc);
        if (nc.dwells > 0) {
            PrintNote(InDrawing(0), Counted(nc.dwells, "dwell marker") + " left out of the NC file");
        }
        if (count < 2) return;
        const std::string segments = std::to_string(count) + " segments";
        if (IsStream(planned_.nc_path)) {
            PrintNote(InDrawing(0), segments + ", each a complete NC file, written one after the other");
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
        if (std::filesystem::exists(path, error)) PrintWarning({path}, "is older and not part of this job");
    }

    const PlannedJob& planned_;
    const LoadedTuning& tuning_;
    CTuningFindings& findings_;
    const JobOptions& options_;
    CFileRoles& roles_;
    CSession session_;
};

}  // namespace

JobOutcome RunPostJob(const PlannedJob& planned, const CommonJob& common, CFileRoles& roles,
                      const std::string& progress) {
    try {
        return CPostJob(planned, common, roles).Run(progress);
    } catch (const std::bad_alloc&) {
        PrintError({planned.drawing}, "not enough memory for this job: no NC file written");
        return JobOutcome::kNotMade;
    }
}

}  // namespace brindle::host
