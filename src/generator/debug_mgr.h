// The trace of a run: which template made which block, and where messages happened.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "generator/text_log.h"

namespace brindle {

// What a trace record tells. The numbers are fixed; 2 does not occur.
enum class TraceKind : uint8_t {
    kTemplate = 0,  // a template starts: `<Line_tTmpl>`, also one that the tuning lacks
    kMessage = 1,   // a message, without comment marks
    kBlock = 3,     // a block with its number word, without its delimiter; a message between its comment marks
};

struct CNCDebugInfo {
    TraceKind kind;
    std::string_view text;  // valid until the trace changes
};

// Records in order of arrival, from the start of one run to the start of the next.
class CNCDebugMgr {
public:
    void Clear();
    void Add(TraceKind kind, std::string_view text);
    size_t GetCount() const { return log_.size(); }
    // `index` must be below GetCount(): std::out_of_range otherwise.
    CNCDebugInfo Get(size_t index) const;

private:
    // The number of a template's header, of which there are few: its records hold the number alone.
    uint32_t HeaderNumber(std::string_view header);

    CTextLog log_;
    std::deque<std::string> headers_;                                // by number
    std::unordered_map<std::string_view, uint32_t> header_numbers_;  // keys point into headers_
    uint32_t last_header_ = 0;                                       // mostly asked for again
};

}  // namespace brindle
