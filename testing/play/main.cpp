// `brindle-play`: plays the windows of the library from text, for tests.
#include "testing/play/headless_screen.h"
#include "testing/play/player.h"

int main(int argc, char** argv) {
    using namespace brindle;
    return play::RunPlayer(argc, argv,
                           [](CToolkitUser& user) { return std::make_unique<play::CHeadlessScreen>(user); });
}
