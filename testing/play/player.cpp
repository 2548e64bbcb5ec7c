#include "testing/play/player.h"

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "brindle/brindle.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "testing/play/play_session.h"

namespace brindle::play {
namespace {

constexpr int kBadInput = 1;
constexpr int kBadUsage = 2;

struct Arguments {
    std::string tuning;   // empty for an empty tuning
    std::string drawing;  // empty for no drawing
};

bool Parse(const std::vector<std::string>& words, Arguments& arguments) {
    for (size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--drawing" && i + 1 < words.size()) {
            arguments.drawing = words[++i];
        } else if (!words[i].starts_with('-') && arguments.tuning.empty()) {
            arguments.tuning = words[i];
        } else {
            return false;
        }
    }
    return true;
}

bool CantRead(const std::string& path) {
    std::cerr << "brindle-play: " << path << ": can't be read\n";
    return false;
}

bool LoadTuning(const std::string& path) {
    const auto text = ReadWholeFile(path);
    if (!text) return CantRead(path);
    for (const std::string_view line : SplitLines(*text)) {
        GBrn_ReadTuneLine(NarrowToWide(line).c_str());
    }
    return true;
}

bool LoadDrawing(const std::string& path) {
    if (!ReadWholeFile(path)) return CantRead(path);
    GBrn_OpenCF2File(NarrowToWide(path).c_str());
    return true;
}

}  // namespace

int RunPlayer(int argc, char** argv, const ScreenMaker& make_screen) {
    Arguments arguments;
    if (!Parse({argv + 1, argv + argc}, arguments)) {
        std::cerr << "Usage: brindle-play [--drawing FILE] [TUNING] <ACTS\n";
        return kBadUsage;
    }
    if (!arguments.tuning.empty() && !LoadTuning(arguments.tuning)) return kBadInput;
    if (!arguments.drawing.empty() && !LoadDrawing(arguments.drawing)) return kBadInput;
    CPlaySession session(std::cin, std::cout, std::cerr);
    const auto screen = make_screen(session);
    return session.Run(*screen) ? 0 : kBadInput;
}

}  // namespace brindle::play
