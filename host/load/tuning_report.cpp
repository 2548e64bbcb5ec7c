#include "host/load/tuning_report.h"

#include "check/tuning/checks.h"
#include "host/console/messages.h"
#include "platform/text_file.h"
#include "text/words.h"
#include "tuning/type_words.h"

namespace brindle::host {
namespace {

bool ReportOnFile(const TuningFile& file, void (*check)(const CPlacedTuning&, CDiagnostics&)) {
    CDiagnostics diagnostics(file.path, file.lines);
    check(CPlacedTuning(file.lines), diagnostics);
    PrintDiagnostics(diagnostics, Severity::kError);
    const size_t errors = diagnostics.Count(Severity::kError);
    if (errors > 0) NoteRefusal(file.path, errors);
    return errors == 0;
}

}  // namespace

// Of a whole tuning in place of a definition file only the definition is read.
bool ReportOnDefinition(const LoadedTuning& tuning) {
    if (!tuning.definition_text) return true;
    TuningFile file;
    file.path = tuning.definition_name;
    file.text = *tuning.definition_text;
    file.lines = SplitLines(file.text);
    std::vector<std::string_view> words;
    for (std::string_view& line : file.lines) {
        SplitWords(line, words);
        if (!words.empty() && FindTypeWord(words[0]) != nullptr) line = {};
    }
    return ReportOnFile(file, [](const CPlacedTuning& definition, CDiagnostics& diagnostics) {
        CheckLines(definition, diagnostics);
        CheckRunTimeData(definition, diagnostics);
    });
}

bool ReportOnTuning(const LoadedTuning& tuning) {
    const bool good = ReportOnFile(tuning.file, CheckAll);
    return ReportOnDefinition(tuning) && good;
}

void NoteRefusal(const std::string& path, size_t errors) {
    PrintNote({path}, Counted(errors, "error") + ": no job is done with this file");
}

}  // namespace brindle::host
