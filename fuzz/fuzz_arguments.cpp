// Arguments of the command, one a line, in a folder with a tuning, a definition and a drawing.
#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "files.h"
#include "host/commands/command_line.h"

namespace {

constexpr size_t kLongest = 400;  // more arguments are slow, not new

constexpr std::string_view kTuning =
    "INT nNumOfTools 2\nTEXT sAx1Addr X\nTEXT sAx2Addr Y\nMULTI FileStart_tTmpl NNUL %<@Date><@BlankX><RTD(1)>\n"
    "MULTI Line_tTmpl NNUL G1<@EndPtWords>\nMULTI Arc_tTmpl NNUL G2<@EndPtWords><@ArcDataWords>\n";
constexpr std::string_view kDefinition = "MSG TEXT Note\nDATASETDEF Steel\nDSD Steel R_EXPR RTD(1) 2*TOOLS+BLANK_X\n";
constexpr std::string_view kDrawing =
    "MAIN,BOX\nUR,100,50\nL,0.5,1,0,0,0,25.4,0,0,0\nA,0.5,1,0,10,0,20,0,15,0,5,0,0\nC,LID,1,2,0,0,0,1,1\nEND\n"
    "SUB,LID\nL,0.5,1,0,1,2,3,4,0,0\nEND\n";

void Write(const char* name, std::string_view text) { std::ofstream(name, std::ios::binary) << text; }

// Nothing leaves the folder, no process forks.
bool MayRun(const std::string& argument) {
    const bool is_short = argument.size() > 1 && argument[0] == '-' && argument[1] != '-';
    return !argument.starts_with("--job") && !(is_short && argument.find('j') != std::string::npos) &&
           argument.find('/') == std::string::npos;
}

std::vector<std::string> ArgumentsOf(std::string_view text) {
    std::vector<std::string> arguments = {"brindle"};
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), text.size());
        arguments.emplace_back(text.substr(0, end)).push_back('\0');
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return arguments;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const CWorkFolder folder;
    if (size > kLongest) return 0;
    std::vector<std::string> arguments = ArgumentsOf({reinterpret_cast<const char*>(data), size});
    if (!std::all_of(arguments.begin(), arguments.end(), MayRun)) return 0;
    ::setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    for (const char* const screen : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) ::unsetenv(screen);
    folder.Empty();
    Write("a.tun", kTuning);
    Write("a.rtd", kDefinition);
    Write("a.cf2", kDrawing);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    const int status = brindle::host::RunCommandLine(static_cast<int>(pointers.size()), pointers.data());
    if (status < 0 || status > 3) std::abort();
    return 0;
}
