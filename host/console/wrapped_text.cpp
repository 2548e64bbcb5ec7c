#include "host/console/wrapped_text.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "platform/text_encoding.h"
#include "text/numbers.h"
#include "text/words.h"

namespace brindle::host {

std::vector<std::string> WrappedLines(std::string_view text, size_t width) {
    std::vector<std::string_view> words;
    SplitWords(text, words, " \n");
    std::vector<std::string> lines(1);
    size_t used = 0;  // characters of the last line
    for (const std::string_view word : words) {
        const size_t length = NarrowToWide(word).size();
        if (used > 0 && width > 0 && used + 1 + length > width) {
            lines.emplace_back();
            used = 0;
        }
        if (used > 0) lines.back().push_back(' ');
        lines.back().append(word);
        used += length + (used > 0 ? 1 : 0);
    }
    return lines;
}

size_t ScreenWidth() {
    const char* const columns = std::getenv("COLUMNS");  // NOLINT(concurrency-mt-unsafe): nothing sets it
    if (columns != nullptr && LeadingInt(columns) > 0) return static_cast<size_t>(LeadingInt(columns));
    winsize size = {};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace brindle::host
