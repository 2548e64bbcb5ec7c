#include <cmath>

#include "generator/evaluators.h"
#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {
namespace {

constexpr double kSmallRotation = 0.0001;  // radians

int32_t MainNumber(CTextResolver& resolver) {
    std::string scratch;
    return LeadingInt(resolver.ReadText(resolver.run().options.subs.main_number, scratch));
}

// The number of the `sequence`-th program by the formula of the tuning.
int32_t Formula(const SubOptions& subs, int32_t main_number, int32_t sequence) {
    const int32_t main_part = WrapMultiply(subs.main_factor, WrapAdd(subs.main_offset, main_number));
    const int32_t sub_part = WrapMultiply(subs.sub_factor, WrapAdd(subs.sub_offset, sequence));
    return WrapAdd(WrapAdd(subs.total_offset, main_part), sub_part);
}

int32_t SequenceNumber(const SubOptions& subs, int32_t main_number, int32_t sequence) {
    const int32_t step = WrapMultiply(WrapAdd(subs.sub_offset, sequence), subs.sub_factor);
    return WrapAdd(WrapAdd(step, subs.total_offset), main_number);
}

// The block number that the called sub-program recorded when it was written.
void IncludeBlockNumber(CTextResolver& resolver, std::string& out) {
    const RunContext& run = resolver.run();
    const int32_t variant = run.VariantOf(run.Record());
    const int32_t number = variant < 0 ? -1 : run.geometry.GetVariantNumber(variant);
    if (number < 0) return resolver.ReportError("ERROR: BLOCK NUM NOT SET");
    AppendInt(out, number);
}

// What the main program counts as in a sequence of programs.
int32_t MainSequence(const RunContext& run) {
    return run.options.programs.subs_first ? run.geometry.GetVariantCount() : 0;
}

// A reset code goes out only after a code that it resets.
void ResetCode(CTextResolver& resolver, WordKind kind, const OptionText& option, bool modal, std::string& last,
               std::string& out) {
    if (modal && last.empty()) return;
    std::string scratch;
    const std::string_view code = resolver.ReadText(option, scratch);
    if (code.empty() || (modal && last == code)) return;
    resolver.Log({.kind = kind, .resets = true, .text = code});
    last = code;
    out += code;
    resolver.AppendSeparator(out);
}

}  // namespace

void MainProgNum(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    resolver.AppendText(resolver.run().options.subs.main_number, out);
}

void CurProgNum(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const SubOptions& subs = run.options.subs;
    const bool counts_on = keywords.HasWord(Keyword::kIncBy);
    const int32_t further = counts_on ? keywords.IncBy(0) : 0;
    const int32_t variant = run.controller.current_program;
    const bool in_main = variant < 0;
    if (subs.by_sequence) {
        const int32_t sequence = in_main                           ? MainSequence(run)
                                 : run.options.programs.subs_first ? variant
                                                                   : WrapAdd(variant, 1);
        return AppendInt(out, SequenceNumber(subs, MainNumber(resolver), WrapAdd(sequence, further)));
    }
    if (in_main && !counts_on) return resolver.AppendText(subs.main_number, out);
    if (!in_main && run.options.programs.sub_numbers_by_block) return IncludeBlockNumber(resolver, out);
    const int32_t sequence = in_main ? MainSequence(run) : WrapAdd(variant, 1);
    AppendInt(out, Formula(subs, MainNumber(resolver), WrapAdd(sequence, further)));
}

void CurProgName(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    out += resolver.run().controller.current_program_name;
}

void IncludeNum(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    RunContext& run = resolver.run();
    const SubOptions& subs = run.options.subs;
    if (!run.Record().IsInclude()) return;
    if (!subs.by_sequence && run.options.programs.sub_numbers_by_block) return IncludeBlockNumber(resolver, out);
    const int32_t variant = run.VariantOf(run.Record());
    if (variant < 0) return;
    const int32_t number = MainNumber(resolver);
    if (!subs.by_sequence) return AppendInt(out, Formula(subs, number, variant + 1));
    AppendInt(out, SequenceNumber(subs, number, run.options.programs.subs_first ? variant : variant + 1));
}

void IncludeName(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    out += resolver.run().Record().GetIncludeName();
}

void NumOfSubs(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    AppendInt(out, resolver.run().geometry.GetVariantCount());
}

void MarkAsSub(CTextResolver& resolver, const CAtDirKeywords&, std::string&) {
    RunContext& run = resolver.run();
    run.geometry.SetVariantNumber(run.controller.current_program, run.state.numbers.number);
}

void IncludeMirResetCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    if (!run.options.programs.mirror_in_use) return;
    ResetCode(resolver, WordKind::kCallMirror, run.options.subs.mirror_reset, keywords.WantModal(true),
              run.state.last.call_mirror, out);
}

void IncludeRotResetWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    if (!run.options.programs.rotations_in_use) return;
    ResetCode(resolver, WordKind::kCallRotation, run.options.subs.rotation_reset, keywords.WantModal(true),
              run.state.last.call_rotation, out);
}

void IncludeMirCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const SubOptions& subs = run.options.subs;
    const CNCData& record = run.Record();
    if (!run.options.programs.mirror_in_use || !record.IsInclude()) return;
    const bool x = record.GetIncludeMirrorX();
    const bool y = record.GetIncludeMirrorY();
    if (!x && !y && keywords.WantModal(true)) return IncludeMirResetCode(resolver, keywords, out);
    const OptionText& option = x && y ? subs.mirror_xy : x ? subs.mirror_x : y ? subs.mirror_y : subs.mirror_reset;
    std::string scratch;
    const std::string_view code = resolver.ReadText(option, scratch);
    resolver.Log({.kind = WordKind::kCallMirror, .resets = !x && !y, .text = code});
    run.state.last.call_mirror = code;
    out += code;
    resolver.AppendSeparator(out);
}

void IncludeRotWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const SubOptions& subs = run.options.subs;
    if (!run.options.programs.rotations_in_use || !run.Record().IsInclude()) return;
    const double rotation = run.Record().GetIncludeRotation();
    if (std::fabs(rotation) < kSmallRotation && keywords.WantModal(true)) {
        return IncludeRotResetWord(resolver, keywords, out);
    }
    const double value = RoundScaled(rotation / kRadiansPerDegree, subs.rotation_factor, subs.rotation_decimals);
    std::string address;
    resolver.AppendText(subs.rotation_address, address);
    if (address.empty()) return;
    std::string word;
    resolver.AppendText(subs.rotation_code, word);
    if (!word.empty()) resolver.AppendSeparator(word);
    word.append(address).append(CNumberText(value, subs.rotation_decimals, run.state.trim).view());
    resolver.AppendSeparator(word);
    resolver.Log({.kind = WordKind::kCallRotation, .text = word});
    run.state.last.call_rotation = word;
    out += word;
}

}  // namespace brindle
