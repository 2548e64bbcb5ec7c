// The lines of a drawing that are no record of the library's: which of them a drawing always has, and which look as if
// they were meant to have an effect.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "check/diagnostics.h"
#include "check/drawing/line_use.h"

namespace brindle {

// Sees all lines of a drawing in their order. What is reported once per name is kept until the end.
class COtherLines {
public:
    // A line that is none of the records that the library takes. `inches` are the units in force.
    void Look(size_t line, const std::vector<std::string_view>& words, bool inches, CDiagnostics& diagnostics);
    // A line that is one: the order data, which may hold anything, are over.
    void SeeRecord() { in_order_ = false; }
    // Reports what is kept.
    void ReportNames(CDiagnostics& diagnostics) const;

private:
    struct Ignored {
        Rule rule;
        LineUse use;
        std::string text;
    };

    void Ignore(Rule rule, const std::string& name, size_t line, std::string text);
    void LookAtName(size_t line, const std::vector<std::string_view>& words);

    bool in_order_ = false;  // between ORDER and END
    std::map<std::string, Ignored> ignored_;
};

}  // namespace brindle
