#include "check/mending.h"

#include <algorithm>
#include <map>

namespace brindle {
namespace {

// From the last word to the first, so that the places of the others stay.
ChangedLine Apply(std::string_view line, size_t number, std::vector<Edit>& edits) {
    std::sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.place.column > b.place.column; });
    ChangedLine changed{number, line, std::string(line)};
    for (const Edit& edit : edits) {
        changed.is_removed |= edit.place.column == 0;
        if (edit.place.column != 0) changed.after.replace(edit.place.column - 1, edit.place.length, edit.text);
    }
    if (changed.is_removed) changed.after.clear();
    return changed;
}

}  // namespace

std::vector<ChangedLine> MendedLines(std::span<const std::string_view> lines, CDiagnostics& diagnostics) {
    std::map<size_t, std::vector<Edit>> edits;
    for (const Diagnostic& diagnostic : diagnostics.Sorted()) {
        if (diagnostic.mend) edits[diagnostic.mend->place.line].push_back(*diagnostic.mend);
    }
    std::vector<ChangedLine> changed;
    for (auto& [number, of_line] : edits) changed.push_back(Apply(lines[number - 1], number, of_line));
    return changed;
}

std::string MendedText(std::string_view text, std::span<const ChangedLine> changed) {
    std::string mended;
    size_t copied = 0;
    for (const ChangedLine& line : changed) {
        const auto first = static_cast<size_t>(line.before.data() - text.data());
        mended.append(text.substr(copied, first - copied)).append(line.after);
        copied = first + line.before.size();
        if (line.is_removed) copied = std::min(text.find('\n', copied), text.size() - 1) + 1;
    }
    return mended.append(text.substr(copied));
}

}  // namespace brindle
