#include <filesystem>
#include <memory>
#include <string>

#include "editor/pages/params_sheet.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/tuning_argument.h"
#include "host/console/messages.h"
#include "host/edit/find_toolkit.h"
#include "host/edit/tuning_edits.h"
#include "host/files/input_file.h"
#include "host/files/output_files.h"
#include "host/load/loaded_drawing.h"
#include "host/load/loaded_tuning.h"
#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

struct EditArguments {
    TuningArgument input;
    bool inches = false;
};

std::string NameOf(const std::string& path) { return AsUtf8(fs::path(path).filename().string()); }

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
        PrintWarning({file.path, number}, "is not a line of a tuning, so saving leaves it out");
    }
}

// The session's tuning as a file, with the line ends of the file that it came from.
std::string SavedText(const CBrindleOpts& tuning, const TuningFile& file) {
    const std::string_view line_end = file.text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    std::vector<std::string> lines;
    tuning.WriteToList(lines);
    std::string text;
    for (const std::string& line : lines) text.append(AsUtf8(line)).append(line_end);
    return text;
}

// A field that the user has only looked at must not change a machine's program in silence.
void NoteChangedDefaults(const LoadedTuning& tuning, const CBrindleOpts& edited) {
    if (tuning.file.lines.empty()) return;  // a new tuning
    std::string keys;
    for (const std::string& key : ChangedByDefaults(tuning.options, edited)) {
        keys.append(keys.empty() ? "" : ", ").append(key);
    }
    if (keys.empty()) return;
    PrintNote({tuning.file.path},
              "these keys were missing and are there now, with another value than a run took: " + keys);
}

// The previous file stays as `TUNING~`, which is in place before the tuning is replaced.
int Save(const LoadedTuning& tuning, const CBrindleOpts& edited) {
    const TuningFile& file = tuning.file;
    const std::string text = SavedText(edited, file);
    if (text == file.text) {
        PrintNote({file.path}, "nothing has changed");
        return kGood;
    }
    COutputFiles files;
    std::error_code error;
    if (fs::exists(file.path, error) && !files.Add(file.path + "~", file.text)) return kBadInput;
    if (!files.Add(file.path, text) || !files.Commit()) return kBadInput;
    NoteChangedDefaults(tuning, edited);
    return kGood;
}

int ReportCancel(const LoadedTuning& tuning, const CBrindleOpts& edited) {
    const auto keys = EditedKeys(tuning.options, edited);
    if (keys.empty()) return kGood;
    PrintNote({tuning.file.path},
              "left as it was; " + Counted(keys.size(), "edit") + " dropped, the first of " + keys[0]);
    return kGood;
}

int Edit(EditArguments& arguments) {
    SettleTuning(arguments.input, DrawingUse::kMayBe);
    if (arguments.input.tuning == kStandardInput) throw CLI::ParseError("TUNING must be a file", kBadUsage);
    LoadedTuning tuning;
    CToolkit* const toolkit = FindToolkit();
    if (toolkit == nullptr || !LoadOrBegin(arguments.input.tuning, tuning)) return kBadInput;
    WarnOfDroppedLines(tuning.file);
    CSession session;
    SetTuning(session, tuning);
    session.Job().tuning_file = NameOf(arguments.input.tuning);
    if (!arguments.input.drawing.empty()) {
        // Which tools the drawing needs is for the user to see in the preview.
        std::optional<LoadedDrawing> drawing = LoadDrawing(arguments.input.drawing, nullptr);
        if (!drawing) return kBadInput;
        TellOfDrawing(*drawing);
        session.Job().file_name = NameOf(arguments.input.drawing);
        session.TakeDrawing(drawing->text);
    }
    CNCParamsSheet sheet(*toolkit, &session, arguments.inches,
                         NameOf(arguments.input.tuning) + " - Brindle Parameter Editor");
    sheet.AddPages();
    return sheet.RunModal() ? Save(tuning, session.tuning) : ReportCancel(tuning, session.tuning);
}

}  // namespace

void AddEditCommand(CLI::App& app, int& status) {
    const auto arguments = std::make_shared<EditArguments>();
    CLI::App& command = AddCommand(
        app, "edit", "Opens the tuning editor",
        {.usage = "TUNING [DRAWING]",
         .notes = "OK saves the tuning and keeps the file as it was as TUNING~; Cancel leaves it\n"
                  "alone.",
         .example = "brindle edit laser.tun box.cf2",
         .status = "0 if all went well, cancelled or not; 1 if there is no display, or a file can't be read or "
                   "written; 2 for wrong usage."});
    AddTuning(command, arguments->input, "Tuning file; one that does not exist begins empty");
    AddDrawing(command, arguments->input, "Drawing for the preview");
    command.add_flag("--inches", arguments->inches, "Show lengths in inches");
    command.callback([arguments, &status] { status = Edit(*arguments); });
}

}  // namespace brindle::host
