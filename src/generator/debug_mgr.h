// The trace of a run: which template made which block, and where messages happened.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

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
    // Adds the start of template `number`, whose header is kept once. The numbers are small ones of the run's choice.
    void AddTemplate(std::string_view header, uint32_t number);
    size_t GetCount() const { return log_.size(); }
    // `index` must be below GetCount(): std::out_of_range otherwise.
    CNCDebugInfo Get(size_t index) const;
    // The indexes of all blocks, in order; starts of templates and messages among them if they are wanted.
    std::vector<uint32_t> Select(bool templates, bool messages) const;

private:
    static TraceKind KindOf(uint8_t tag);

    CTextLog log_;
    std::vector<std::string_view> headers_;  // by number, in the log; null before the first start
};

}  // namespace brindle
