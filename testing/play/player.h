// What all players share: their arguments, and what the session begins with.
#pragma once

#include <functional>
#include <memory>

#include "testing/play/play_screen.h"
#include "testing/play/toolkit_user.h"

namespace brindle::play {

using ScreenMaker = std::function<std::unique_ptr<CPlayScreen>(CToolkitUser& user)>;

// Plays the acts of standard input on a screen of that kind, as `[--drawing FILE] [TUNING] <ACTS`. Gives the exit
// status.
int RunPlayer(int argc, char** argv, const ScreenMaker& make_screen);

}  // namespace brindle::play
