#include "host/console/drawing_report.h"

#include "host/console/messages.h"

namespace brindle::host {

bool ReportOnDrawing(const std::string& name, std::string_view text, const CBrindleOpts* tuning,
                     DrawingSurvey& survey) {
    survey = SurveyDrawing(text);
    if (survey.nul_line != 0 || !survey.has_records) {
        PrintError({name, survey.nul_line}, survey.nul_line != 0 ? "the line holds a NUL byte: this is no CFF2 drawing"
                                                                 : "holds no record of a CFF2 drawing");
        return false;
    }
    for (const DrawingFinding& finding : survey.findings) PrintWarning({name, finding.line}, finding.text);
    if (tuning == nullptr) return true;
    for (const DrawingFinding& finding : FindMisfits(survey, *tuning)) {
        PrintWarning({name, finding.line}, finding.text);
    }
    return true;
}

}  // namespace brindle::host
