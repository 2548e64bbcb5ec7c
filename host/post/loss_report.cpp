#include "host/post/loss_report.h"

#include <cmath>
#include <vector>

#include "cff2/cff2_reader.h"
#include "host/console/messages.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

std::string Millimetres(double length) { return std::isfinite(length) ? FixedText(length, 3) + " mm" : "infinite"; }

std::string AmountOf(const Loss& loss) {
    const bool is_angle = loss.rule == Rule::kToolDirection || loss.rule == Rule::kTurnInMaterial;
    return is_angle ? FixedText(loss.largest, 1) + " degrees" : Millimetres(loss.largest);
}

class CLossReport {
public:
    explicit CLossReport(std::string_view drawing) : lines_(LinesOfRecords(drawing)) {}

    Diagnostic DiagnosticOf(const Loss& loss) const {
        const LossPlace& place = loss.first.front();
        Diagnostic diagnostic{loss.rule, InfoOf(loss.rule).severity, {LineOf(place.record), 0, 0}, {}, {}};
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
        return diagnostic;
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

    std::vector<std::vector<size_t>> lines_;
};

}  // namespace

LossCounts ReportLosses(const CLosses& losses, const std::vector<Rule>& allowed, std::string_view drawing,
                        const std::string& path) {
    LossCounts counts;
    if (losses.all().empty()) return counts;
    const CLossReport report(drawing);
    CDiagnostics diagnostics(path);
    diagnostics.Allow(allowed);
    for (const Loss& loss : losses.all()) {
        Diagnostic diagnostic = report.DiagnosticOf(loss);
        diagnostics.Add(diagnostic.rule, diagnostic.place, std::move(diagnostic.message),
                        std::move(diagnostic.way_out));
    }
    counts.losses = diagnostics.Count(Severity::kLoss);
    counts.warnings = diagnostics.Count(Severity::kWarning);
    PrintDiagnostics(diagnostics);
    if (counts.losses == 0) return counts;
    const JobSums& sums = losses.sums;
    PrintNote({path}, "drawn: " + Counted(sums.drawn, "record") + ", " + Millimetres(sums.drawn_mm) +
                          "; cut: " + Millimetres(sums.cut_mm) + "; lost: " + Counted(sums.lost, "record") + ", " +
                          Millimetres(sums.lost_mm));
    return counts;
}

}  // namespace brindle::host
