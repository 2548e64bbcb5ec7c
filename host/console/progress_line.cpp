#include "host/console/progress_line.h"

#include <unistd.h>

#include <iostream>
#include <string>

#include "host/console/messages.h"

namespace brindle::host {

CProgressLine::CProgressLine(std::string_view text) : shown_(!text.empty() && ::isatty(STDERR_FILENO) != 0) {
    constexpr size_t kLongest = 60;  // a line that wraps could not be erased
    if (!shown_) return;
    std::cerr << "\rbrindle: " + PrintableText(text.substr(0, kLongest));
}

CProgressLine::~CProgressLine() {
    constexpr std::string_view kEraseLine = "\r\033[K";
    if (shown_) std::cerr << kEraseLine;
}

}  // namespace brindle::host
