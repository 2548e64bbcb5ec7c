// What a run changes as it writes: words, tools, blocks. Evaluators of directives see it all.
#pragma once

#include <cstdint>
#include <string>

#include "generator/block_numbers.h"
#include "generator/last_words.h"
#include "generator/number_format.h"

namespace brindle {

enum class ToolPower : uint8_t { kUnknown, kOff, kOn };

// What a move's block takes for its interpolation code, whatever the tool does.
enum class MoveKind : uint8_t { kNone, kRapid, kLinear };

// The tool, as tool control has left it. Its power decides whether a template is needed to switch it, `down` decides
// the interpolation code of a block.
struct ToolState {
    int32_t selected = -1;  // number, -1 none
    ToolPower power = ToolPower::kUnknown;
    bool down = false;
    MoveKind move = MoveKind::kNone;  // other than kNone while a move is written
    bool keep_physical = false;       // a change within one physical tool is under way
    bool fly_mode = false;
    bool fly_post_due = false;  // the pre-code of fly mode awaits its post-code
};

// Lives as long as the session. A run sets nearly all of it anew; the words of the last call, the pending text and what
// comment marks see of the run before are carried over.
struct RunState {
    LastWords last;
    ToolState tool;
    BlockNumbers numbers;
    std::string pending_text;  // start of a block whose line was not terminated
    TrimFlags trim;

    // No tool selected, its power unknown, no last words.
    void ForgetOutput() {
        tool.selected = -1;
        tool.power = ToolPower::kUnknown;
        last.tool_angle = -1.0;
        last.Clear();
    }
};

}  // namespace brindle
