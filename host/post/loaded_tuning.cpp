#include "host/post/loaded_tuning.h"

#include "brindle/brindle.h"
#include "editor/toolkit/active_toolkit.h"
#include "host/console/messages.h"
#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

using ReadMode = CRunTimeDataDef::ReadMode;

bool LoadDefinition(const std::string& path, LoadedTuning& tuning) {
    if (!tuning.definition_file.Open(path)) return false;
    tuning.options.definition().ReadFromFile(tuning.definition_file.path(), ReadMode::kTuning);
    tuning.has_definition_file = true;
    tuning.definition_name = path;
    if (!IsEmpty(tuning.definition())) return true;
    PrintError({path}, "holds no definition of run-time data");
    return false;
}

std::string DatasetNames(const CDataSetContainer& datasets) {
    std::string names;
    for (size_t i = 0; i < datasets.size(); ++i) names.append(i == 0 ? "" : ", ").append(Quoted(datasets.NameAt(i)));
    return names;
}

}  // namespace

bool LoadTuning(const std::string& path, const std::string& definition_path, LoadedTuning& tuning) {
    if (!ReadTuningFile(path, tuning.file)) return false;
    if (const size_t line = FirstLineWithNul(tuning.file)) {
        PrintError({path, line}, "the line holds a NUL byte: this is no tuning");
        return false;
    }
    // The library gets each line as wide characters, so what is no UTF-8 changes on the way.
    for (const std::string_view line : tuning.file.lines) {
        tuning.options.ReadLine(AsUtf8(line), ReadMode::kTuning);
    }
    tuning.definition_name = path;
    return definition_path.empty() || LoadDefinition(definition_path, tuning);
}

bool ChooseDataset(const LoadedTuning& tuning, const std::string& asked, std::string& dataset) {
    const CDataSetContainer& datasets = tuning.definition().datasets();
    dataset = asked.empty() ? tuning.definition().FirstDatasetName() : asked;
    if (asked.empty() || datasets.Exists(asked)) return true;
    PrintError({tuning.definition_name},
               "there is no dataset " + Quoted(asked) +
                   (datasets.size() == 0 ? ", nor any other" : "; there are " + DatasetNames(datasets)));
    return false;
}

bool IsEmpty(const CRunTimeDataDef& definition) {
    return definition.rows().empty() && definition.columns().empty() && definition.messages().empty() &&
           definition.datasets().size() == 0;
}

std::wstring Wide(std::string_view text) { return NarrowToWide(text); }

std::string Taken(wchar_t* text) {
    std::string narrow = WideToNarrow(text);
    SysFreeString(text);
    return narrow;
}

bool HasEditor() {
    if (ActiveToolkit() != nullptr) return true;
    PrintError({}, "the editor can't open: it needs a display, and its plugin beside the library");
    return false;
}

}  // namespace brindle::host
