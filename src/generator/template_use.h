// What a template is for, and what it can write.
#pragma once

#include <string>
#include <string_view>

#include "language/compiled_text.h"

namespace brindle {

enum class TemplateUse : uint8_t {
    kFrame,
    kMove,
    kLine,
    kArc,
    kText,
    kMoveToCall,
    kCall,
    kCallReset,
    kOriginSet,
    kOriginReset,
    kToolSelect,
    kToolDeselect,
    kToolOn,
    kToolOff,
};
TemplateUse UseOf(const CompiledTemplate& compiled);

// Whether a text says more than blanks and comments.
bool SaysSomething(std::string_view text);
// The lines of a template that say something, each with its end; what a directive gives is a `1` in it.
std::string SourceOf(const CompiledTemplate& compiled);
bool HasDirective(const CompiledTemplate& compiled, DirectiveId directive);

}  // namespace brindle
