// A line on the user's terminal that says what is going on and vanishes when it is over.
#pragma once

#include <string_view>

namespace brindle::host {

// Shows `text` on standard error from construction to destruction, if that is a terminal; empty text shows nothing.
// Nothing else may be printed there meanwhile.
class CProgressLine {
public:
    explicit CProgressLine(std::string_view text);
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;
    ~CProgressLine();

private:
    bool shown_;
};

}  // namespace brindle::host
