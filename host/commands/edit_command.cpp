#include <filesystem>
#include <memory>
#include <new>
#include <string>

#include "api/brindle_mgr.h"
#include "brindle/brindle.h"
#include "host/commands/commands.h"
#include "host/console/drawing_report.h"
#include "host/console/messages.h"
#include "host/edit/tuning_edits.h"
#include "host/files/output_files.h"
#include "host/post/loaded_tuning.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

struct EditArguments {
    std::string tuning, drawing;
    bool inches = false;
};

// A tuning that isn't there yet begins empty.
bool LoadOrBegin(const std::string& path, LoadedTuning& tuning) {
    std::error_code error;
    if (fs::exists(path, error) || error) return LoadTuning(path, {}, tuning);
    PrintNote({path}, "does not exist yet: this is a new tuning");
    tuning.file.path = path;
    return true;
}

// Lines that the library drops, comments among them, would be gone from the saved file without a word.
void WarnOfDroppedLines(const TuningFile& file) {
    CBrindleOpts scratch;
    size_t number = 0;
    for (const std::string_view line : file.lines) {
        ++number;
        if (line.find_first_not_of(" \t") == std::string_view::npos) continue;
        if (scratch.definition().ReadLine(line, CRunTimeDataDef::ReadMode::kTuning) || scratch.ParseLine(line))
            continue;
        PrintWarning({file.path, number}, "is no line of a tuning, so saving leaves it out");
    }
}

// Which tools the drawing needs is for the user to see in the preview.
bool SendDrawing(const std::string& path, CLibraryInput& drawing) {
    if (path.empty()) return true;
    DrawingSurvey survey;
    if (!drawing.Open(path) || !ReportOnDrawing(path, drawing.text(), nullptr, survey)) return false;
    GBrn_SetFileName(Wide(fs::path(path).filename().string()).c_str());
    GBrn_OpenCF2File(Wide(drawing.path()).c_str());
    return true;
}

// The session's tuning as a file, with the line ends of the file that it came from.
std::string SavedText(const TuningFile& file) {
    wchar_t* all = nullptr;
    GBrn_GetTuning(&all);
    if (all == nullptr) throw std::bad_alloc();
    std::string text = Taken(all);
    const std::string line_end = file.text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    for (size_t at = 0; (at = text.find('\b', at)) != std::string::npos; at += line_end.size()) {
        text.replace(at, 1, line_end);
    }
    return text;
}

bool Write(const std::string& path, const std::string& text) {
    COutputFiles files;
    return files.Add(path, text) && files.Commit();
}

// A field that the user has only looked at must not change a machine's program in silence.
void NoteChangedDefaults(const LoadedTuning& tuning) {
    if (tuning.file.lines.empty()) return;  // a new tuning
    std::string keys;
    for (const std::string& key : ChangedByDefaults(tuning.options, CBrindleMgr::Current().tuning)) {
        keys.append(keys.empty() ? "" : ", ").append(key);
    }
    if (keys.empty()) return;
    PrintNote({tuning.file.path},
              "these keys were missing and are there now, with another value than a run took: " + keys);
}

// The previous file stays as `TUNING~`, which is whole before the tuning is replaced.
int Save(const LoadedTuning& tuning) {
    const TuningFile& file = tuning.file;
    const std::string text = SavedText(file);
    if (text == file.text) {
        PrintNote({file.path}, "nothing has changed");
        return kGood;
    }
    std::error_code error;
    if (fs::exists(file.path, error) && !Write(file.path + "~", file.text)) return kBadInput;
    if (!Write(file.path, text)) return kBadInput;
    NoteChangedDefaults(tuning);
    return kGood;
}

int ReportCancel(const LoadedTuning& tuning) {
    const auto keys = EditedKeys(tuning.options, CBrindleMgr::Current().tuning);
    if (keys.empty()) return kGood;
    PrintNote({tuning.file.path},
              "left as it was; " + Counted(keys.size(), "edit") + " dropped, the first of " + keys[0]);
    return kGood;
}

int Edit(const EditArguments& arguments) {
    LoadedTuning tuning;
    CLibraryInput drawing;
    if (!HasEditor() || !LoadOrBegin(arguments.tuning, tuning)) return kBadInput;
    WarnOfDroppedLines(tuning.file);
    const std::string name = fs::path(arguments.tuning).filename().string();
    GBrn_Clear();
    for (const std::string_view line : tuning.file.lines) GBrn_ReadTuneLine(Wide(line).c_str());
    GBrn_SetTuningFileName(Wide(name).c_str());
    if (!SendDrawing(arguments.drawing, drawing)) return kBadInput;
    int with_ok = 0;
    GBrn_DisplayTuningDialog(arguments.inches ? 1 : 0, Wide(name + " - Brindle Parameter Editor").c_str(), &with_ok);
    const int status = with_ok != 0 ? Save(tuning) : ReportCancel(tuning);
    GBrn_Clear();
    return status;
}

}  // namespace

void AddEditCommand(CLI::App& app, int& status) {
    CLI::App& command = *app.add_subcommand("edit", "Opens the tuning editor");
    const auto arguments = std::make_shared<EditArguments>();
    command.add_option("TUNING", arguments->tuning, "Tuning file; one that does not exist begins empty")
        ->required()
        ->check([](const std::string& path) { return path == kStandardInput ? "TUNING must be a file" : ""; });
    command.add_option("DRAWING", arguments->drawing, "Drawing for the preview");
    command.add_flag("--inches", arguments->inches, "Show lengths in inches");
    command.footer("OK saves the tuning and keeps the file as it was as TUNING~; Cancel leaves it alone.");
    command.callback([arguments, &status] { status = Edit(*arguments); });
}

}  // namespace brindle::host
