// Whether windows can be opened.
#pragma once

namespace brindle {

// A QApplication in the thread that calls, made if the process has none and a display can be used. False if there can
// be none. Qt ends the whole process where it can't reach the display, so that is tried first.
bool HasApplication();

}  // namespace brindle
