// The dialog that edits one template.
#pragma once

#include <string_view>

#include "editor/toolkit/windows.h"
#include "tuning/kv_container.h"

namespace brindle {

// Lets the user edit a template as plain text, which is not looked into. The check boxes write at the click, so Cancel
// takes back the text alone. `container` may be null: nothing can be stored then. `prefix` is that of the template's
// keys; `per_tool` shows what a tool's template can clear. True if the user left with OK; the template is stored then,
// without the N words that it held.
bool EditTemplate(CToolkit& toolkit, CKVItemContainer* container, std::string_view prefix, std::string_view name,
                  bool per_tool);

// The lines of a text whose lines are joined with CR LF. A line end at the very end begins no further line.
TemplateLines LinesOfText(std::string_view text);

}  // namespace brindle
