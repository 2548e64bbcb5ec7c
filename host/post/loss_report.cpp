#include "host/post/loss_report.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cff2/cff2_reader.h"
#include "host/console/messages.h"
#include "platform/text_file.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

std::string Millimetres(double length) { return std::isfinite(length) ? FixedText(length, 3) + " mm" : "infinite"; }

std::string AmountOf(const Loss& loss) {
    const bool is_angle = loss.rule == Rule::kToolDirection || loss.rule == Rule::kTurnInMaterial;
    return is_angle ? FixedText(loss.largest, 1) + " degrees" : Millimetres(loss.largest);
}

// Findings of a drawing that say nothing but the cause of a loss.
struct SameCause {
    Rule rule;
    Cause cause;
    bool has_news;  // it names what the loss does not, and is told with it
};
constexpr SameCause kSameCauses[] = {
    {Rule::kUnknownTool, Cause::kToolOutOfRange, false},
    {Rule::kUnknownTool, Cause::kNoTool, false},
    {Rule::kRadiusAsDirection, Cause::kRadiusAsDirection, false},
    {Rule::kRadiusInInches, Cause::kRadiusInInches, false},
    {Rule::kUnknownProgram, Cause::kUnknownProgram, true},
};

class CLossReport {
public:
    CLossReport(LoadedDrawing& drawing, CTuningFindings& tuning)
        : drawing_(drawing), tuning_(tuning), lines_(LinesOfRecords(drawing.text)), text_(SplitLines(drawing.text)) {}

    Diagnostic DiagnosticOf(const Loss& loss) {
        const LossPlace& place = loss.first.front();
        Diagnostic diagnostic{.rule = loss.rule, .place = {LineOf(place.record)}, .tool = loss.tool};
        std::string& text = diagnostic.message;
        text = InfoOf(loss.rule).meaning;
        if (!text.empty() && text.back() == '.') text.pop_back();
        if (!loss.detail.empty()) text.append(": ").append(Quoted(loss.detail));
        if (loss.tool > 0) text.append(", tool ").append(std::to_string(loss.tool));
        if (loss.largest > 0.0) text.append(", ").append(AmountOf(loss));
        if (place.call.program >= 0) text.append(", in the call of line ").append(std::to_string(LineOf(place.call)));
        if (loss.count > 1) text.append(", ").append(std::to_string(loss.count)).append(" times").append(Others(loss));
        const CauseInfo& cause = InfoOf(loss.cause);
        if (!cause.why.empty()) text.append(": ").append(cause.why);
        diagnostic.way_out = cause.way_out;
        AddPlaces(loss, diagnostic);
        AddTuning(loss, diagnostic);
        return diagnostic;
    }

    // Takes what the drawing's own findings say of the cause out of them.
    void TakeSameCauses(const Loss& loss, Diagnostic& diagnostic) {
        for (const SameCause& same : kSameCauses) {
            if (same.cause != loss.cause) continue;
            const auto says_the_same = [&](const Diagnostic& finding) {
                if (finding.rule != same.rule || (finding.tool != 0 && finding.tool != loss.tool)) return false;
                if (same.has_news) diagnostic.related.push_back({{}, finding.place, {}, finding.message, false});
                return true;
            };
            drawing_.findings.Drop(says_the_same);
            drawing_.pairing.Drop(says_the_same);
        }
    }

private:
    size_t LineOf(RecordPlace place) const {
        const auto program = static_cast<size_t>(place.program);
        const auto index = static_cast<size_t>(place.index);
        if (place.program < 0 || program >= lines_.size() || index >= lines_[program].size()) return 0;
        return lines_[program][index];
    }

    std::string Others(const Loss& loss) const {
        std::string text;
        for (size_t i = 1; i < loss.first.size(); ++i) {
            const size_t line = LineOf(loss.first[i].record);
            if (line != 0) text.append(text.empty() ? " (also line " : ", ").append(std::to_string(line));
        }
        return text.empty() ? text : text + ")";
    }

    // The places that the message names.
    void AddPlaces(const Loss& loss, Diagnostic& diagnostic) const {
        const auto add = [&](RecordPlace place, const char* what) {
            const size_t line = LineOf(place);
            if (line != 0) diagnostic.related.push_back({{}, {line}, {}, what, true});
        };
        add(loss.first.front().call, "the call");
        for (size_t i = 1; i < loss.first.size(); ++i) add(loss.first[i].record, "here too");
    }

    void AddTuning(const Loss& loss, Diagnostic& diagnostic) {
        if (!loss.template_key.empty()) {
            diagnostic.related.push_back(tuning_.PlaceInTemplate(loss));
            // Of other losses it is the place to look at, but not what is wrong.
            diagnostic.related.back().is_told = loss.rule != Rule::kUnresolvedValue;
        }
        const size_t line = diagnostic.place.line;
        const std::string_view record = line == 0 ? std::string_view() : text_[line - 1].substr(0, 1);
        for (RelatedPlace& cause : tuning_.CausesOf(loss, record)) {
            const auto is_there = [&cause](const RelatedPlace& other) {
                return other.file == cause.file && other.place.line == cause.place.line;
            };
            std::erase_if(diagnostic.related, is_there);
            diagnostic.related.push_back(std::move(cause));
        }
    }

    LoadedDrawing& drawing_;
    CTuningFindings& tuning_;
    std::vector<std::vector<size_t>> lines_;  // of records, by program
    std::vector<std::string_view> text_;      // by line
};

void TellOfSums(const JobSums& sums, const std::string& path) {
    PrintNote({path}, "drawn: " + Counted(sums.drawn, "record") + ", " + Millimetres(sums.drawn_mm) +
                          "; cut: " + Millimetres(sums.cut_mm) + "; lost: " + Counted(sums.lost, "record") + ", " +
                          Millimetres(sums.lost_mm));
}

}  // namespace

FindingCounts ReportLosses(const CLosses& losses, const std::vector<Rule>& allowed, LoadedDrawing& drawing,
                           CTuningFindings& tuning) {
    CDiagnostics diagnostics(drawing.path);
    diagnostics.Allow(allowed);
    CLossReport report(drawing, tuning);
    for (const Loss& loss : losses.all()) {
        if (diagnostics.IsAllowed(loss.rule)) continue;
        Diagnostic diagnostic = report.DiagnosticOf(loss);
        report.TakeSameCauses(loss, diagnostic);
        diagnostics.Add(std::move(diagnostic));
    }
    TellOfDrawing(drawing);
    PrintDiagnostics(diagnostics);
    if (diagnostics.Count(Severity::kLoss) > 0) TellOfSums(losses.sums, drawing.path);
    FindingCounts counts;
    for (const CDiagnostics* const found : {&diagnostics, &drawing.findings, &drawing.pairing}) {
        counts.losses += found->Count(Severity::kLoss);
        counts.warnings += found->Count(Severity::kWarning);
    }
    return counts;
}

}  // namespace brindle::host
