// How programs with tests of windows begin.
#pragma once

namespace brindle::toolkit_test {

// To be called before the QApplication is made: no screen unless the caller's environment names one, and Qt's own file
// dialogs, which are the same everywhere. Complaints of Qt go to standard error.
void PrepareOffscreen();

}  // namespace brindle::toolkit_test
