#include "host/load/loaded_drawing.h"

#include "host/console/messages.h"
#include "host/files/input_file.h"
#include "host/files/input_kind.h"

namespace brindle::host {

std::optional<LoadedDrawing> LoadDrawing(const std::string& path, const CBrindleOpts* tuning,
                                         const MeantFindings& meant) {
    std::optional<std::string> text = ReadInputFile(path);
    if (!text) return std::nullopt;
    LoadedDrawing drawing{std::move(*text), {}, 0, 0};
    CDiagnostics diagnostics(path), pairing(path);
    diagnostics.Allow(meant.rules);
    pairing.Allow(meant.rules);
    drawing.survey = SurveyDrawing(drawing.text, diagnostics);
    if (!drawing.survey.has_records) {
        std::string fault = FaultOfKind(drawing.text, WantedInput::kDrawing);
        if (fault.empty()) fault = FaultOfName(path);
        if (!fault.empty()) {
            PrintError({path}, fault);
            return std::nullopt;
        }
        for (const Diagnostic& diagnostic : diagnostics.Sorted()) {
            if (diagnostic.severity == Severity::kError) PrintError({path, diagnostic.place.line}, diagnostic.message);
        }
        return std::nullopt;
    }
    PrintDiagnostics(diagnostics);
    if (tuning != nullptr) {
        DrawingSurvey to_cut = drawing.survey;
        for (const int32_t tool : meant.tools) to_cut.tools.erase(tool);
        CheckPairing(to_cut, *tuning, pairing);
    }
    PrintDiagnostics(pairing);
    drawing.losses = diagnostics.Count(Severity::kLoss) + pairing.Count(Severity::kLoss);
    drawing.warnings = diagnostics.Count(Severity::kWarning) + pairing.Count(Severity::kWarning);
    return drawing;
}

}  // namespace brindle::host
