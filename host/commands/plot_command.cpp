#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>

#include "generator/path_recorder.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/number_pair.h"
#include "host/commands/tuning_argument.h"
#include "host/console/messages.h"
#include "host/files/input_file.h"
#include "host/files/output_files.h"
#include "host/files/output_plan.h"
#include "host/load/loaded_drawing.h"
#include "host/load/loaded_tuning.h"
#include "host/load/tuning_report.h"
#include "host/picture/scene_painter.h"
#include "host/post/run_report.h"
#include "scene/scene_of_path.h"
#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

constexpr double kLeastPixels = 100.0;
constexpr double kMostPixels = 10000.0;

struct PlotArguments {
    TuningArgument input;
    std::string output, size;
    bool dark = false;
};

// ---- Arguments ----

bool IsPictureSize(const std::string& text) {
    const auto is_good = [](double pixels) {
        return pixels >= kLeastPixels && pixels <= kMostPixels && pixels == std::floor(pixels);
    };
    const std::optional<Point> size = PairText(text, 'x');
    return size && is_good(size->x) && is_good(size->y);
}

std::string ExtensionOf(const std::string& path) {
    std::string extension = fs::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), LowerAscii);
    return extension;
}

// By default the drawing's name in the current folder, as of an NC file.
std::string PathOfPicture(const PlotArguments& arguments) {
    if (arguments.output == "/dev/stdout") return kStandardOutput;
    const bool from_stream = arguments.input.drawing == kStandardInput;
    if (arguments.output.empty() && from_stream) return kStandardOutput;
    const std::string name = (from_stream ? "stdin" : fs::path(arguments.input.drawing).stem().string()) + ".svg";
    if (arguments.output.empty()) return name;
    std::error_code error;
    return fs::is_directory(arguments.output, error) ? (fs::path(arguments.output) / name).string() : arguments.output;
}

// kGood, or the exit status with a message printed if the picture can't be written there.
int CheckPath(const std::string& path, const PlotArguments& arguments) {
    const OutputPlan plan = PlanOutput({{arguments.input.drawing}, path, {}, {arguments.input.tuning}});
    const std::string extension = ExtensionOf(path);
    if (!plan.lacks_folder && !IsStream(path) && extension != ".svg" && extension != ".png") {
        PrintError({path}, "a picture is .svg or .png");
        return kBadUsage;
    }
    if (plan.fault.empty()) return kGood;
    PrintError({}, plan.fault);
    return plan.lacks_folder ? kBadInput : kBadUsage;
}

PictureStyle StyleOf(const PlotArguments& arguments) {
    PictureStyle style;
    style.dark = arguments.dark;
    style.title = fs::path(arguments.input.drawing).filename().string() + ", " +
                  fs::path(arguments.input.tuning).filename().string();
    if (const std::optional<Point> size = PairText(arguments.size, 'x')) {
        style.width = static_cast<int>(size->x);
        style.height = static_cast<int>(size->y);
    }
    return style;
}

// ---- Work ----

bool RunForScene(const PlotArguments& arguments, PathScene& scene) {
    LoadedTuning tuning;
    if (!LoadTuning(arguments.input.tuning, {}, tuning) || !ReportOnTuning(tuning)) return false;
    std::optional<LoadedDrawing> drawing = LoadDrawing(arguments.input.drawing, &tuning.options);
    if (!drawing) return false;
    TellOfDrawing(*drawing);
    CSession session;
    SetTuning(session, tuning);
    session.TakeDrawing(drawing->text);
    CPathRecorder recorder;
    const JobResult result = RunJob(session, &recorder);
    PrintRunMessages(result, arguments.input.drawing, false);
    const ToolPath path = recorder.TakePath();
    if (!path.complete) PrintWarning({arguments.input.drawing}, "the calls lead to more than can be drawn");
    scene = MakeScene(path);
    if (scene.strokes.empty()) PrintWarning({arguments.input.drawing}, "the tool goes nowhere");
    return true;
}

int Plot(PlotArguments& arguments) {
    SettleTuning(arguments.input, DrawingUse::kMustBe);
    const std::string path = PathOfPicture(arguments);
    if (const int status = CheckPath(path, arguments); status != kGood) return status;
    PathScene scene;
    if (!RunForScene(arguments, scene)) return kBadInput;
    const PictureStyle style = StyleOf(arguments);
    const std::string picture = ExtensionOf(path) == ".png" ? PngPicture(scene, style) : SvgPicture(scene, style);
    if (picture.empty()) {
        PrintError({path}, "there is not enough memory for the picture");
        return kBadInput;
    }
    COutputFiles files;
    return files.Add(path, picture) && files.Commit() ? kGood : kBadInput;
}

}  // namespace

void AddPlotCommand(CLI::App& app, int& status) {
    const auto arguments = std::make_shared<PlotArguments>();
    CLI::App& command = AddCommand(
        app, "plot", "Draws the tool path of a drawing",
        {.usage = "TUNING DRAWING", .example = "brindle plot laser.tun box.cf2 -o box.png", .status = kUsualStatus});
    AddTuning(command, arguments->input, "Tuning of the machine; - is standard input");
    AddDrawing(command, arguments->input, "CFF2 drawing; - is standard input");
    command
        .add_option("-o,--output", arguments->output,
                    "Picture, .svg or .png, or a folder for it; - is standard output, which gets SVG. By default the "
                    "drawing's name with .svg in the current folder")
        ->type_name("PATH");
    command.add_option("--size", arguments->size, "Size of the picture, pixels; by default 1200x900")
        ->type_name("WIDTHxHEIGHT")
        ->check([](const std::string& text) {
            return IsPictureSize(text) ? std::string() : Quoted(text) + " is no size from 100x100 to 10000x10000";
        });
    command.add_flag("--dark", arguments->dark, "Draw on a dark ground");
    command.callback([arguments, &status] { status = Plot(*arguments); });
}

}  // namespace brindle::host
