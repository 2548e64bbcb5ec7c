#include "check/drawing/other_lines.h"

#include <algorithm>

#include "cff2/cff2_record.h"
#include "text/ascii.h"
#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Whether `type` is one of those that are known in upper case only.
bool IsType(std::string_view type) { return cff2::FindRecordType(type) != nullptr && !EqualNoCase(type, "MAIN"); }

// What drawings hold besides the records of a job: END, ORDER, the version; marks and remarks, which begin with no
// letter or digit.
bool IsCustomary(std::string_view name) {
    if (EqualNoCase(name, "END") || EqualNoCase(name, "ORDER") || EqualNoCase(name, "MAIN")) return true;
    const char c = UpperAscii(name[0]);
    if (c == 'V' && name.size() > 1) return std::all_of(name.begin() + 1, name.end(), IsDigit);
    return !IsDigit(c) && (c < 'A' || c > 'Z');
}

// Whether each word after the first is the number `neutral`.
bool AllAre(const std::vector<std::string_view>& words, double neutral) {
    return std::all_of(words.begin() + 1, words.end(),
                       [neutral](std::string_view word) { return ParseNumber(word) == neutral; });
}

}  // namespace

void COtherLines::Ignore(Rule rule, const std::string& name, size_t line, std::string text) {
    Ignored& ignored = ignored_[name];
    ignored.use.Add(line);
    ignored.rule = rule;
    if (ignored.use.count == 1) ignored.text = std::move(text);
}

void COtherLines::Look(size_t line, const std::vector<std::string_view>& words, bool inches,
                       CDiagnostics& diagnostics) {
    const std::string_view type = words[0];
    if (EqualNoCase(type, "ORDER")) in_order_ = true;
    if (EqualNoCase(type, "END")) in_order_ = false;
    if (!IsType(UpperCase(type))) {
        if (!in_order_) LookAtName(line, words);
    } else if (words.size() > 1) {
        diagnostics.Add(Rule::kRecordCase, {line},
                        "record type " + Quoted(type) + " is not in upper case: line ignored");
    } else if (type == "UI") {
        if (!inches) {
            diagnostics.Add(Rule::kUnitsWord, {line},
                            "UI has no effect without a second word: lengths stay millimetres; for inches write UI,1");
        }
    } else if (type == "UM") {
        if (inches) {
            diagnostics.Add(Rule::kUnitsWord, {line},
                            "UM has no effect without a second word: lengths stay inches; for millimetres write UM,1");
        }
    } else if (IsType(type)) {
        diagnostics.Add(Rule::kShortRecord, {line}, std::string(type) + " record without further words: dropped");
    }
}

void COtherLines::LookAtName(size_t line, const std::vector<std::string_view>& words) {
    const std::string_view name = words[0];
    if (EqualNoCase(name, "LL")) {
        if (!AllAre(words, 0.0))
            Ignore(Rule::kLowerLeft, "LL", line, "LL is not read: the lower left corner counts as 0,0");
    } else if (EqualNoCase(name, "SCL") || EqualNoCase(name, "SCALE")) {
        if (!AllAre(words, 1.0)) {
            const std::string type = UpperCase(name);
            Ignore(Rule::kScale, type, line, type + " is not read: lengths count as written");
        }
    } else if (const size_t semicolon = name.find(';'); semicolon != std::string_view::npos && semicolon > 0) {
        Ignore(Rule::kSemicolons, ";", line, "semicolons separate no words, commas and blanks do: line ignored");
    } else if (!IsCustomary(name)) {
        Ignore(Rule::kUnknownRecord, std::string(name), line, "no record is called " + Quoted(name) + ": line ignored");
    }
}

void COtherLines::ReportNames(CDiagnostics& diagnostics) const {
    for (const auto& [name, ignored] : ignored_) {
        diagnostics.Add(ignored.rule, {ignored.use.first_line}, ignored.text + LikeFurther(ignored.use, "line"));
    }
}

}  // namespace brindle
