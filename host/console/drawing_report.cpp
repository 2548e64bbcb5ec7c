#include "host/console/drawing_report.h"

#include "host/console/messages.h"

namespace brindle::host {

bool ReportOnDrawing(const std::string& name, std::string_view text, const CBrindleOpts* tuning,
                     DrawingSurvey& survey) {
    CDiagnostics diagnostics(name), pairing(name);
    survey = SurveyDrawing(text, diagnostics);
    if (!survey.has_records) {
        for (const Diagnostic& diagnostic : diagnostics.Sorted()) {
            if (diagnostic.severity == Severity::kError) PrintError({name, diagnostic.place.line}, diagnostic.message);
        }
        return false;
    }
    PrintDiagnostics(diagnostics);
    if (tuning == nullptr) return true;
    CheckPairing(survey, *tuning, pairing);
    PrintDiagnostics(pairing);
    return true;
}

}  // namespace brindle::host
