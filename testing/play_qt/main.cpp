// `brindle-play-qt`: plays the windows of the library from text as `brindle-play` does, on the widgets of the Qt
// plugin.
#include <QApplication>

#include "testing/play/player.h"
#include "testing/play_qt/offscreen.h"
#include "testing/play_qt/qt_screen.h"

int main(int argc, char** argv) {
    using namespace brindle;
    toolkit_test::PrepareOffscreen();
    const QApplication application(argc, argv);
    return play::RunPlayer(argc, argv,
                           [](CToolkitUser& user) { return std::make_unique<toolkit_test::CQtScreen>(user); });
}
