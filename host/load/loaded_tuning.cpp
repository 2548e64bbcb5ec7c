#include "host/load/loaded_tuning.h"

#include "host/console/messages.h"
#include "host/files/input_file.h"
#include "host/files/input_kind.h"
#include "platform/text_encoding.h"
#include "text/ascii.h"

namespace brindle::host {
namespace {

using ReadMode = CRunTimeDataDef::ReadMode;

bool LoadDefinition(const std::string& path, LoadedTuning& tuning) {
    tuning.definition_text = ReadInputFile(path);
    if (!tuning.definition_text) return false;
    tuning.options.definition().ReadFromText(*tuning.definition_text, ReadMode::kTuning);
    tuning.definition_name = path;
    if (!IsEmpty(tuning.definition())) return true;
    const std::string fault = FaultOfKind(*tuning.definition_text, WantedInput::kTuning);
    PrintError({path}, fault.empty() ? "holds no definition of run-time data" : fault);
    return false;
}

std::string DatasetNames(const CDataSetContainer& datasets) {
    std::string names;
    for (size_t i = 0; i < datasets.size(); ++i) names.append(i == 0 ? "" : ", ").append(Quoted(datasets.NameAt(i)));
    return names;
}

std::vector<std::string> NamesInOtherCase(const CDataSetContainer& datasets, const std::string& asked) {
    std::vector<std::string> names;
    for (size_t i = 0; i < datasets.size(); ++i) {
        if (EqualNoCase(datasets.NameAt(i), asked)) names.push_back(datasets.NameAt(i));
    }
    return names;
}

}  // namespace

bool LoadTuning(const std::string& path, const std::string& definition_path, LoadedTuning& tuning) {
    if (!ReadTuningFile(path, tuning.file)) return false;
    if (const size_t line = FirstLineWithNul(tuning.file)) {
        PrintError({path, line}, "the line holds a NUL byte: this is no tuning");
        return false;
    }
    return TakeTuning(definition_path, tuning);
}

bool TakeTuning(const std::string& definition_path, LoadedTuning& tuning) {
    for (const std::string_view line : tuning.file.lines) tuning.options.ReadFileLine(line);
    tuning.definition_name = tuning.file.path;
    return definition_path.empty() || LoadDefinition(definition_path, tuning);
}

bool ChooseDataset(const LoadedTuning& tuning, const std::string& asked, std::string& dataset) {
    const CDataSetContainer& datasets = tuning.definition().datasets();
    dataset = asked.empty() ? tuning.definition().FirstDatasetName() : asked;
    if (asked.empty() || datasets.Exists(asked)) return true;
    const std::vector<std::string> meant = NamesInOtherCase(datasets, asked);
    if (meant.size() == 1) {
        dataset = meant[0];
        PrintNote({tuning.definition_name}, "dataset " + Quoted(asked) + " is taken as " + Quoted(dataset));
        return true;
    }
    PrintError({tuning.definition_name},
               "there is no dataset " + Quoted(asked) +
                   (datasets.size() == 0 ? ", nor any other" : "; there are " + DatasetNames(datasets)));
    return false;
}

bool IsEmpty(const CRunTimeDataDef& definition) {
    return definition.rows().empty() && definition.columns().empty() && definition.messages().empty() &&
           definition.datasets().size() == 0;
}

void SetTuning(CSession& session, const LoadedTuning& tuning, const ExpressionValues& values) {
    CRunTimeDataDef& definition = session.tuning.definition();
    // Lines take the values of their expressions as they are read, so the values come first.
    for (const auto& [expression, value] : values) {
        definition.expression_values().SetText(expression, AsUtf8(value), TextKind::kPlain);
    }
    for (const std::string_view line : tuning.file.lines) session.tuning.ReadFileLine(line);
    if (tuning.definition_text) definition.ReadFromText(*tuning.definition_text, ReadMode::kResolve);
}

}  // namespace brindle::host
