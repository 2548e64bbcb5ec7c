#include "host/load/loaded_drawing.h"

#include <utility>

#include "host/console/messages.h"
#include "host/files/input_file.h"
#include "host/files/input_kind.h"

namespace brindle::host {

std::optional<LoadedDrawing> LoadDrawing(const std::string& path, const CBrindleOpts* tuning,
                                         const MeantFindings& meant, std::optional<std::string> text) {
    if (!text) text = ReadInputFile(path);
    if (!text) return std::nullopt;
    LoadedDrawing drawing;
    drawing.path = path;
    drawing.text = std::move(*text);
    drawing.findings = CDiagnostics(path);
    drawing.pairing = CDiagnostics(path);
    drawing.findings.Allow(meant.rules);
    drawing.pairing.Allow(meant.rules);
    drawing.survey = SurveyDrawing(drawing.text, drawing.findings);
    if (!drawing.survey.has_records) {
        std::string fault = FaultOfKind(drawing.text, WantedInput::kDrawing);
        if (fault.empty()) fault = FaultOfName(path);
        if (!fault.empty()) {
            PrintError({path}, fault);
        } else {
            PrintDiagnostics(drawing.findings, Severity::kError);
        }
        return std::nullopt;
    }
    if (tuning == nullptr) return drawing;
    DrawingSurvey to_cut = drawing.survey;
    for (const int32_t tool : meant.tools) to_cut.tools.erase(tool);
    CheckPairing(to_cut, *tuning, drawing.pairing);
    return drawing;
}

void TellOfDrawing(LoadedDrawing& drawing) {
    PrintDiagnostics(drawing.findings);
    PrintDiagnostics(drawing.pairing);
}

}  // namespace brindle::host
