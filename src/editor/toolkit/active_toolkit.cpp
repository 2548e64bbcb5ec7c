#include "editor/toolkit/active_toolkit.h"

namespace brindle {
namespace {

CToolkit*& Active() {
    static CToolkit* toolkit = nullptr;
    return toolkit;
}

}  // namespace

CToolkit* ActiveToolkit() { return Active(); }

void SetActiveToolkit(CToolkit* toolkit) { Active() = toolkit; }

}  // namespace brindle
