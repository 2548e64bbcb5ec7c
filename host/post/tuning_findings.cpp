#include "host/post/tuning_findings.h"

#include <algorithm>

#include "check/tuning/checks.h"
#include "host/console/messages.h"

namespace brindle::host {
namespace {

// A rule of tunings, and what a drawing shows to be lost by it.
struct RuleOfCause {
    Rule rule;
    Cause cause;
};
constexpr RuleOfCause kRulesOfCauses[] = {
    {Rule::kToolOutOfRange, Cause::kToolOutOfRange},
    {Rule::kMissingTemplate, Cause::kNoTemplate},
    {Rule::kMissingTemplate, Cause::kNoMove},
    {Rule::kMissingTemplate, Cause::kNoCall},
    {Rule::kNoTemplates, Cause::kNoTemplate},
    {Rule::kToolWithoutTemplates, Cause::kNoToolOn},
    {Rule::kToolWithoutTemplates, Cause::kNoSelection},
    {Rule::kToolStaysOn, Cause::kNoToolOff},
    {Rule::kNoMirrorCode, Cause::kUnwrittenTurn},
    {Rule::kNoRotationWord, Cause::kUnwrittenTurn},
    {Rule::kNoModeOfSubs, Cause::kSubsMode},
};

// Rules of words that a run can't evaluate.
constexpr Rule kUnresolvedWords[] = {Rule::kUnknownDirective, Rule::kBadRunTimeWord, Rule::kUndefinedRunTimeWord,
                                     Rule::kMissingValue,     Rule::kCycle,          Rule::kNeedsRecord};

bool MayWait(Rule rule) {
    const auto of_cause = [rule](const RuleOfCause& pair) { return pair.rule == rule; };
    return std::find(std::begin(kUnresolvedWords), std::end(kUnresolvedWords), rule) != std::end(kUnresolvedWords) ||
           std::any_of(std::begin(kRulesOfCauses), std::end(kRulesOfCauses), of_cause);
}

// The template that a loss of this cause lacks, as far as the record says.
std::string_view MissingTemplate(Cause cause, std::string_view record) {
    if (cause == Cause::kNoMove) return "Move_tTmpl";
    if (cause == Cause::kNoCall) return "SubCall_tTmpl";
    return record == "A" ? "Arc_tTmpl" : record == "T" ? "Text_tTmpl" : "Line_tTmpl";
}

}  // namespace

CTuningFindings::CTuningFindings(const TuningFile& file, const std::vector<Rule>& allowed, bool has_other_definition)
    : file_(file), tuning_(file.lines), diagnostics_(file.path, file.lines) {
    diagnostics_.Allow(allowed);
    CheckAll(tuning_, diagnostics_);
    if (!has_other_definition) return;
    diagnostics_.Drop([](const Diagnostic& diagnostic) {
        const RuleGroup group = InfoOf(diagnostic.rule).group;
        const bool is_of_definition = group == RuleGroup::kRunTimeData || group == RuleGroup::kRunTimeWords;
        return is_of_definition && diagnostic.severity != Severity::kError;
    });
}

void CTuningFindings::TellAll() { PrintDiagnostics(diagnostics_); }

void CTuningFindings::TellFirst() {
    for (const Diagnostic& diagnostic : diagnostics_.Sorted()) {
        if (MayWait(diagnostic.rule)) waiting_.push_back(std::make_unique<Waiting>(diagnostic));
    }
    CDiagnostics others = diagnostics_;
    others.Drop([](const Diagnostic& diagnostic) { return MayWait(diagnostic.rule); });
    PrintDiagnostics(others);
}

void CTuningFindings::TellRest() {
    for (const auto& waiting : waiting_) {
        const Diagnostic& diagnostic = waiting->diagnostic;
        if (waiting->is_told.exchange(true)) continue;
        Tell(MessageOf(diagnostic, file_.path, diagnostics_.LineOf(diagnostic.place)));
    }
}

std::vector<RelatedPlace> CTuningFindings::CausesOf(const Loss& loss, std::string_view record) {
    std::vector<RelatedPlace> causes;
    for (const auto& waiting : waiting_) {
        const Diagnostic& diagnostic = waiting->diagnostic;
        if (!IsCause(diagnostic, loss, record)) continue;
        waiting->is_told = true;
        if (causes.size() == CLosses::kMostPlaces) continue;
        std::string text = diagnostic.message;
        if (!diagnostic.way_out.empty()) text.append(" (").append(diagnostic.way_out).append(")");
        causes.push_back({file_.path, diagnostic.place, std::string(diagnostics_.LineOf(diagnostic.place)), text});
    }
    return causes;
}

RelatedPlace CTuningFindings::PlaceInTemplate(const Loss& loss) const {
    RelatedPlace place{file_.path, {}, {}, loss.template_key + " is the template"};
    const PlacedItem* const item = tuning_.Find(loss.template_key);
    if (item == nullptr) return place;
    place.line = item->line->text;
    place.place = item->KeyPlace();
    const size_t index = 2 * loss.template_line + 3;  // after the type, the key, and an N word before each text
    if (index >= item->line->words.size()) return place;
    const std::string_view text = item->line->words[index];
    const size_t at = loss.detail.empty() ? std::string_view::npos : text.find(loss.detail);
    place.place = item->line->PlaceOf(at == std::string_view::npos ? text : text.substr(at, loss.detail.size()));
    return place;
}

std::string_view CTuningFindings::WordOf(const Diagnostic& diagnostic) const {
    const std::string_view line = diagnostics_.LineOf(diagnostic.place);
    const size_t first = std::max<size_t>(diagnostic.place.column, 1) - 1;
    return first >= line.size() ? std::string_view() : line.substr(first, diagnostic.place.length);
}

bool CTuningFindings::IsCause(const Diagnostic& diagnostic, const Loss& loss, std::string_view record) const {
    if (loss.rule == Rule::kUnresolvedValue) {
        const std::string_view word = WordOf(diagnostic);
        const bool is_of_words = std::find(std::begin(kUnresolvedWords), std::end(kUnresolvedWords), diagnostic.rule) !=
                                 std::end(kUnresolvedWords);
        return is_of_words && !word.empty() &&
               (word.find(loss.detail) != std::string_view::npos || loss.detail.find(word) != std::string::npos);
    }
    const auto of_both = [&](const RuleOfCause& pair) {
        return pair.rule == diagnostic.rule && pair.cause == loss.cause;
    };
    if (std::none_of(std::begin(kRulesOfCauses), std::end(kRulesOfCauses), of_both)) return false;
    if (diagnostic.tool != 0 && diagnostic.tool != loss.tool) return false;
    if (diagnostic.rule != Rule::kMissingTemplate) return true;
    const bool is_named = loss.cause == Cause::kNoTemplate && !loss.template_key.empty();
    return diagnostic.subject == (is_named ? loss.template_key : MissingTemplate(loss.cause, record));
}

}  // namespace brindle::host
