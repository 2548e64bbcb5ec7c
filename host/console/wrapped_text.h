// Text laid out for the width of a screen.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindle::host {

// The words of `text`, between blanks and line ends, in lines of at most `width` characters; a longer word has a line
// of its own. Width 0 is no limit. There is at least one line.
std::vector<std::string> WrappedLines(std::string_view text, size_t width);

// The characters that fit into a line of standard output: what COLUMNS says, else the width of the terminal. 0, which
// is no limit, if there is neither: what goes into a file or another program has one line for each thing.
size_t ScreenWidth();

}  // namespace brindle::host
