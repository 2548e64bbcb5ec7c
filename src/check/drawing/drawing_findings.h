// What is wrong with a drawing, collected while it is looked through.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// Something that the user should know of. Line 0 stands for the drawing as a whole.
struct DrawingFinding {
    size_t line = 0;
    std::string text;
};

void SortByLine(std::vector<DrawingFinding>& findings);

// Lines that have something in common.
struct LineUse {
    size_t first_line = 0;
    size_t count = 0;

    void Add(size_t line) {
        if (count++ == 0) first_line = line;
    }
};

// `, like 3 further lines` for a message about the first of 4; empty for a single one.
std::string LikeFurther(const LineUse& use, std::string_view thing);

enum class FindingKind {
    kShort,
    kNotFinite,
    kBadNumber,
    kWords,
    kArc,
    kNoProgram,
    kDiscarded,
    kTextDropped,
    kOddText,
    kUnits,
    kCase,
    kUnknown,
    kName
};

// Findings as they come, at most 20 of a kind and a last one that tells how many more.
class CFindingList {
public:
    void Add(FindingKind kind, size_t line, std::string text);
    // All findings in order of lines; the list is of no use afterwards.
    std::vector<DrawingFinding> Take();

private:
    static constexpr size_t kKinds = static_cast<size_t>(FindingKind::kName) + 1;

    std::array<LineUse, kKinds> uses_ = {};
    std::array<size_t, kKinds> last_line_ = {};
    std::vector<DrawingFinding> findings_;
};

}  // namespace brindle
