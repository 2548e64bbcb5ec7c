// The dialog that chooses one of the segments of an output.
#pragma once

#include "editor/toolkit/windows.h"
#include "generator/buffer_mgr.h"

namespace brindle {

// Lets the user choose the current buffer. Does nothing if there is no choice.
void ChooseSegment(CToolkit& toolkit, CBufferMgr& buffers);

}  // namespace brindle
