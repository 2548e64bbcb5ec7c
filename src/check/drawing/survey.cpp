#include "check/drawing/survey.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <unordered_map>

#include "cff2/cff2_record.h"
#include "check/drawing/misplaced_words.h"
#include "check/drawing/numbers.h"
#include "check/drawing/other_lines.h"
#include "platform/text_file.h"
#include "text/message_words.h"

namespace brindle {
namespace {

// Follows the reader through a drawing, record by record, with what it keeps and what it drops.
class CSurveyor {
public:
    explicit CSurveyor(CDiagnostics& diagnostics) : diagnostics_(diagnostics) {}

    DrawingSurvey Survey(std::string_view text) {
        const std::vector<std::string_view> lines = SplitLines(text);
        for (size_t i = 0; i < lines.size(); ++i) {
            line_ = i + 1;
            text_ = lines[i];
            next_ = i + 1 < lines.size() ? &lines[i + 1] : nullptr;
            const cff2::Record record = cff2::ParseLine(lines[i], words_);
            if (std::holds_alternative<cff2::Other>(record)) {
                LookAtOther();
                continue;
            }
            if (!std::holds_alternative<cff2::Short>(record)) {
                survey_.has_records = true;
                ReportWords();
            }
            others_.SeeRecord();
            std::visit([this](const auto& r) { Take(r); }, record);
            if (TakesNextLine(record)) ++i;
        }
        if (survey_.has_records) LookAtWhole();
        return std::move(survey_);
    }

private:
    static bool TakesNextLine(const cff2::Record& record) {
        const auto* const cut_short = std::get_if<cff2::Short>(&record);
        return std::holds_alternative<cff2::Text>(record) || (cut_short != nullptr && cut_short->takes_next_line);
    }

    void Report(Rule rule, std::string text) { diagnostics_.Add(rule, {line_}, std::move(text)); }

    // Words that are out of place make bad numbers too: that they are is enough.
    void ReportWords() {
        if (CheckWordCount(line_, text_, words_, diagnostics_)) CheckNumbers(line_, words_, diagnostics_);
    }

    // Whether lengths are finite in millimetres; reported if not.
    bool IsFinite(std::initializer_list<double> lengths) {
        const auto finite = [this](double length) { return std::isfinite(length * scale_); };
        if (std::all_of(lengths.begin(), lengths.end(), finite)) return true;
        Report(Rule::kNotFinite, "a number is not finite in millimetres: record dropped");
        return false;
    }

    // Whether a record reaches a program; reported if not.
    bool HasProgram() {
        if (programs_ > 0) return true;
        Report(Rule::kEarlyRecord, "record before the UR record: dropped");
        return false;
    }

    void Take(const cff2::Other&) {}
    void Take(const cff2::MainName& r) {
        if (has_main_) Report(Rule::kLateMainName, "MAIN record after the UR record: the main program keeps its name");
        main_name_ = r.name;
        last_start_ = line_;
    }
    void Take(const cff2::Units& r) {
        survey_.inches = r.inches;
        scale_ = r.inches ? kMillimetresPerInch : 1.0;
    }

    void Take(const cff2::Short& r) {
        Report(Rule::kShortRecord, std::string(r.type) + " record with " + std::to_string(words_.size()) + " of " +
                                       std::to_string(r.words_needed) + " words: dropped" +
                                       (HasEmptyWord(text_) ? "; " + std::string(kEmptyWord) : ""));
    }

    void Take(const cff2::UpperRight& r) {
        if (!IsFinite({r.corner.x, r.corner.y})) return;
        if (programs_ > 0) Report(Rule::kDiscardedPrograms, "UR record: it discards the programs before it");
        has_main_ = true;
        programs_ = 1;
        survey_.corner = {r.corner.x * scale_, r.corner.y * scale_};
        survey_.lines = survey_.arcs = survey_.texts = survey_.calls = survey_.subs = 0;
        survey_.tools.clear();
        names_ = {{main_name_, line_}};
        calls_.clear();
    }

    void Take(const cff2::SubStart& r) {
        last_start_ = line_;
        if (programs_++ > 0) ++survey_.subs;
        const auto [known, is_new] = names_.emplace(r.name, line_);
        if (is_new) return;
        Report(Rule::kRepeatedProgram, "program " + Quoted(r.name) + " is there already, from line " +
                                           std::to_string(known->second) + ": calls go to that one");
    }

    void Take(const cff2::Call& r) {
        if (!HasProgram() || !IsFinite({r.place.x, r.place.y})) return;
        ++survey_.calls;
        calls_[r.name].Add(line_);
    }

    void Take(const cff2::Line& r) {
        if (!HasProgram()) return;
        if (!IsFinite({r.cut.cut_width, r.cut.bridge_width, r.start.x, r.start.y, r.end.x, r.end.y})) return;
        ++survey_.lines;
        survey_.tools[r.cut.tool_id].Add(line_);
    }

    void Take(const cff2::Arc& r) {
        if (!HasProgram()) return;
        if (!IsFinite({r.cut.cut_width, r.cut.bridge_width, r.start.x, r.start.y, r.end.x, r.end.y, r.center.x,
                       r.center.y})) {
            return;
        }
        arc_check_.Add(line_, r, scale_, diagnostics_);
        ++survey_.arcs;
        survey_.tools[r.cut.tool_id].Add(line_);
    }

    void Take(const cff2::Text& r) {
        if (next_ == nullptr)
            return Report(Rule::kTextWithoutLine, "T record at the end, without a line of text: dropped");
        if (!HasProgram() || !IsFinite({r.place.x, r.place.y})) return;
        if (programs_ > 1) return Report(Rule::kTextInSub, "text in a sub-program: dropped");
        ++survey_.texts;
        std::vector<std::string_view> words;
        const cff2::Record next = cff2::ParseLine(*next_, words);
        if (std::holds_alternative<cff2::Line>(next) || std::holds_alternative<cff2::Arc>(next)) {
            Report(Rule::kRecordAsText, "the next line, which looks like a record, is taken as the text of this one");
        }
    }

    void LookAtOther() {
        if (words_.empty()) return;
        const std::string_view type = words_[0];
        if (type == "END") last_end_ = line_;
        if (type.starts_with('$')) {
            has_marks_ = true;
            has_end_mark_ |= type == "$EOF";
        }
        others_.Look(line_, words_, survey_.inches, diagnostics_);
    }

    void LookAtWhole() {
        others_.ReportNames(diagnostics_);
        survey_.habits = arc_check_.Report(diagnostics_);
        if (!has_main_) {
            diagnostics_.Add(Rule::kNoMain, {},
                             programs_ > 0 ? "no UR record: the first sub-program is taken as the main program"
                                           : "no UR record: nothing of the drawing is used");
        }
        for (const auto& [name, use] : calls_) {
            if (names_.contains(name)) continue;
            diagnostics_.Add(Rule::kUnknownProgram, {use.first_line},
                             "call of program " + Quoted(name) + ", which is not in the drawing: ignored" +
                                 LikeFurther(use, "call"));
        }
        if (has_marks_ && !has_end_mark_) {
            diagnostics_.Add(Rule::kCutOff, {}, "no $EOF at the end: the drawing seems cut off");
        } else if (last_end_ != 0 && last_start_ > last_end_) {
            diagnostics_.Add(Rule::kCutOff, {}, "no END after its last program: the drawing seems cut off");
        }
    }

    DrawingSurvey survey_;
    CDiagnostics& diagnostics_;
    COtherLines others_;
    CArcCheck arc_check_;
    std::vector<std::string_view> words_;
    size_t line_ = 0;
    std::string_view text_;  // of the line
    const std::string_view* next_ = nullptr;
    double scale_ = 1.0;
    std::string main_name_;
    size_t programs_ = 0;  // the main program included
    bool has_main_ = false;
    std::unordered_map<std::string, size_t> names_;  // of programs, with their first lines
    std::map<std::string, LineUse> calls_;
    bool has_marks_ = false, has_end_mark_ = false;
    size_t last_start_ = 0, last_end_ = 0;  // lines of the last program's start and of the last END
};

}  // namespace

DrawingSurvey SurveyDrawing(std::string_view text, CDiagnostics& diagnostics) {
    const size_t nul = text.find('\0');
    if (nul != std::string_view::npos) {
        const auto lines_before = std::count(text.begin(), text.begin() + static_cast<ptrdiff_t>(nul), '\n');
        diagnostics.Add(Rule::kNulByte, {static_cast<size_t>(lines_before) + 1},
                        "the line holds a NUL byte: this is no CFF2 drawing");
        return {};
    }
    DrawingSurvey survey = CSurveyor(diagnostics).Survey(text);
    if (!survey.has_records) diagnostics.Add(Rule::kNoDrawing, {}, "holds no record of a CFF2 drawing");
    return survey;
}

void CheckPairing(const DrawingSurvey& survey, const CBrindleOpts& tuning, CDiagnostics& diagnostics) {
    CheckHabits(survey.habits, tuning, survey.tools, diagnostics);
    for (const auto& [tool, use] : survey.tools) {
        const bool is_left_out_on_purpose = tuning.ReadBool(Key("bToolUnused"), "T" + std::to_string(tool) + "_");
        if (is_left_out_on_purpose || !tuning.ToolKeyPrefix(tool, true).empty()) continue;
        diagnostics.Add({.rule = Rule::kUnknownTool,
                         .place = {use.first_line},
                         .message = "tool " + std::to_string(tool) +
                                    " is not in the tuning: " + Counted(use.count, "record") + " ignored",
                         .tool = tool});
    }
}

}  // namespace brindle
