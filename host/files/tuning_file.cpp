#include "host/files/tuning_file.h"

#include <algorithm>

#include "host/console/messages.h"
#include "host/files/input_file.h"
#include "host/files/input_kind.h"
#include "platform/text_file.h"

namespace brindle::host {

bool ReadTuningFile(const std::string& path, TuningFile& file, std::optional<std::string> text) {
    if (!text) text = ReadInputFile(path);
    if (!text) return false;
    if (const std::string fault = FaultOfKind(*text, WantedInput::kTuning); !fault.empty()) {
        PrintError({path}, fault);
        return false;
    }
    file.path = path;
    file.text = std::move(*text);
    file.lines = SplitLines(file.text);
    return true;
}

size_t FirstLineWithNul(const TuningFile& file) {
    const auto holds_nul = [](std::string_view line) { return line.find('\0') != std::string_view::npos; };
    const auto found = std::find_if(file.lines.begin(), file.lines.end(), holds_nul);
    return found == file.lines.end() ? 0 : static_cast<size_t>(found - file.lines.begin()) + 1;
}

}  // namespace brindle::host
