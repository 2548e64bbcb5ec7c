// What checks have found in one file. Checks fill the list; hosts, the editor and others show it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/rules.h"

namespace brindle {

// A word in a file.
struct Place {
    size_t line = 0;    // from 1; 0 for the file as a whole
    size_t column = 0;  // in bytes, from 1; 0 for the line as a whole
    size_t length = 0;  // in bytes
};

// Another place that a finding speaks of: a further record, the call that reached it, the line of a template.
struct RelatedPlace {
    std::string file;  // empty for the file of the finding
    Place place;
    std::string line;      // the text of its line, if the place is a word
    std::string message;   // what is there
    bool is_told = false;  // by the message of the finding
};

// A change of a file that mends a finding. It changes nothing but how the file is read.
struct Edit {
    Place place;       // of a line as a whole: the line goes, its end too
    std::string text;  // in place of the word
};

struct Diagnostic {
    Rule rule;
    Severity severity = Severity::kError;  // that of the rule, once it is added
    Place place = {};
    std::string message = {};
    std::string way_out = {};  // what to write instead; empty if there is no such thing, or the message says it
    std::vector<RelatedPlace> related = {};
    std::optional<Edit> mend = {};  // only if it is safe
    int32_t tool = 0;               // that the finding is about, 0 for none
    std::string subject = {};       // the key of a template that is not there
};

// Diagnostics of one file, in the order in which checks make them. Of the rules of drawings the first 20 of a group
// are kept and the others counted in one line. Rubbish in place of a tuning gives one for each line: of very many,
// the last ones are counted and not kept.
class CDiagnostics {
public:
    // `lines` are those of the file, without their ends; what they point to must outlive the list.
    explicit CDiagnostics(std::string file = {}, std::span<const std::string_view> lines = {})
        : file_(std::move(file)), lines_(lines) {}

    // Findings of these rules are meant: from now on they are left out, but for errors.
    void Allow(std::vector<Rule> rules) { allowed_ = std::move(rules); }
    bool IsAllowed(Rule rule) const { return std::find(allowed_.begin(), allowed_.end(), rule) != allowed_.end(); }
    void Add(Diagnostic diagnostic);
    void Add(Rule rule, Place place, std::string message, std::string way_out = {}) {
        Add({.rule = rule, .place = place, .message = std::move(message), .way_out = std::move(way_out)});
    }

    // Takes findings out again, because something else tells them.
    void Drop(const std::function<bool(const Diagnostic&)>& is_told);

    const std::string& file() const { return file_; }
    size_t Count(Severity severity) const { return counts_[static_cast<size_t>(severity)]; }
    // The line of a place, empty if there is none.
    std::string_view LineOf(const Place& place) const;
    // In the order of their places. Nothing can be added afterwards.
    const std::vector<Diagnostic>& Sorted();

private:
    struct GroupUse {
        size_t count = 0;
        size_t last_line = 0;  // of the last one that is kept
    };

    void AddFurther();

    std::string file_;
    std::span<const std::string_view> lines_;
    std::vector<Rule> allowed_;
    std::vector<Diagnostic> kept_;
    std::array<size_t, 4> counts_ = {};  // by severity
    std::array<GroupUse, kRuleGroups> groups_ = {};
};

}  // namespace brindle
