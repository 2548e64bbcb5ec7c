#include "host/tuning_report.h"

#include "host/check.h"
#include "platform/text_file.h"

namespace brindle::host {
namespace {

bool ReportOnFile(const TuningFile& file, void (*check)(const CCheckedTuning&, CFindings&)) {
    const CCheckedTuning checked(file);
    CFindings findings;
    check(checked, findings);
    findings.Print(file, Severity::kError);
    const size_t errors = findings.Count(Severity::kError);
    if (errors > 0) PrintError({file.path}, Counted(errors, "error") + ": no job is done with this file");
    return errors == 0;
}

void CheckDefinition(const CCheckedTuning& tuning, CFindings& findings) {
    CheckLines(tuning, findings);
    CheckRunTimeData(tuning, findings);
}

}  // namespace

bool ReportOnTuning(const LoadedTuning& tuning) {
    const bool good = ReportOnFile(tuning.file, CheckAll);
    if (!tuning.has_definition_file) return good;
    TuningFile definition;
    definition.path = tuning.definition_name;
    definition.text = tuning.definition_file.text();
    definition.lines = SplitLines(definition.text);
    return ReportOnFile(definition, CheckDefinition) && good;
}

}  // namespace brindle::host
