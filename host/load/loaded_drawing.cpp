#include "host/load/loaded_drawing.h"

#include "host/console/messages.h"
#include "host/files/input_file.h"

namespace brindle::host {

std::optional<LoadedDrawing> LoadDrawing(const std::string& path, const CBrindleOpts* tuning) {
    std::optional<std::string> text = ReadInputFile(path);
    if (!text) return std::nullopt;
    LoadedDrawing drawing{std::move(*text), {}, 0};
    CDiagnostics diagnostics(path), pairing(path);
    drawing.survey = SurveyDrawing(drawing.text, diagnostics);
    if (!drawing.survey.has_records) {
        for (const Diagnostic& diagnostic : diagnostics.Sorted()) {
            if (diagnostic.severity == Severity::kError) PrintError({path, diagnostic.place.line}, diagnostic.message);
        }
        return std::nullopt;
    }
    PrintDiagnostics(diagnostics);
    if (tuning != nullptr) CheckPairing(drawing.survey, *tuning, pairing);
    PrintDiagnostics(pairing);
    drawing.warnings = diagnostics.Count(Severity::kWarning) + pairing.Count(Severity::kWarning);
    return drawing;
}

}  // namespace brindle::host
