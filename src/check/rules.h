// The rules of all checks: what can be wrong with a tuning or a drawing. The name of a rule never changes, so that
// users can allow it by its name.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brindle {

// An error is a line that the reader drops, or a value that a run reads as something else than it says: nobody can have
// meant it. A loss is NC text that does not cut what is drawn. A warning is what gives something else than it seems to,
// or nothing. An info is what has no effect under the options of this tuning.
enum class Severity : uint8_t { kError, kLoss, kWarning, kInfo };

// What a rule looks at, which says where it is checked. Of the rules of drawings, findings of one group are limited
// together.
// clang-format off
enum class RuleGroup : uint8_t {
    // In check/tuning, each in the file of its name.
    kLines, kRunTimeData, kRunTimeWords, kValues, kChoices, kSpeeds, kMissingDirectives, kTools, kTextSyntax,
    kTemplateEvents, kEmptyAddressesAndCodes, kCycles, kUnreadKeys,
    kPairing,  // a drawing and the tuning that it is run with: in check/drawing/survey.cpp and arcs.cpp
    kNcText,   // what a machine makes of the NC text: in verify
    // In check/drawing, each in the file of its name;
    kArcs, kNumbers, kMisplacedWords,
    // in other_lines.cpp;
    kUnits, kCase, kUnknownRecords,
    // in survey.cpp.
    kShortRecords, kInfinite, kPrograms, kCutOff, kTexts, kTextRecords, kNames, kDrawing,
};
inline constexpr size_t kRuleGroups = static_cast<size_t>(RuleGroup::kDrawing) + 1;
constexpr bool IsLimited(RuleGroup group) { return group >= RuleGroup::kArcs; }

enum class Rule : uint8_t {
    // Tunings: lines.
    kDroppedLine, kNulByte, kNotUtf8, kComment, kUnknownType, kEmptyTemplate, kRepeatedKey, kUnknownKey, kWrongType,
    kBadBool, kBadNumber, kNotWhole, kMisplacedExpression, kExtraWords, kCutText, kBadNWord, kMissingText,
    // Tunings: run-time data.
    kBadTime, kRepeatedDataset, kUnknownDataset, kNamelessEntry, kSkippedWord, kShortValueLine, kBadValueType,
    kRepeatedValue, kBadRunTimeWord, kUndefinedRunTimeWord, kMissingValue,
    // Tunings: values and options.
    kBadDecimals, kZeroFactor, kZeroStep, kSmallTolerance, kNoCommentText, kNoBlockEnd, kNoSegmentLimit, kSmallSegments,
    kTextWithoutTool, kNoPrimaryTool, kNoCentreMode, kNoSpeedFactor, kNoTemplates, kMissingTemplate,
    kSeveralChosen, kNoneChosen, kBadSpeed, kSmallSpeedFactor, kNoSecondSpeed, kToolWithoutSpeed,
    // Tunings: directives that a run needs.
    kNoMirrorCode, kNoRotationWord, kNoFlyCode, kNoToolRotation, kNoCallPosition, kNoModeOfSubs, kMainNumberText,
    // Tunings: tools.
    kToolOutOfRange, kUnusedTool, kBadMaster, kToolStaysOn, kChangeWhileOn, kNoFacetLimit, kToolWithoutTemplates,
    // Tunings: words of texts.
    kUnclosedWord, kWordAsText, kUnclosedCharacter, kBadCharacter, kCharacterRange, kUnknownDirective,
    kUnclosedArguments, kUnknownKeyword, kIgnoredKeyword, kContradiction, kNoKeywordValue, kExtraKeywordValue,
    kUnclosedValue, kBadKeywordValue,
    // Tunings: directives in their templates, and what they read.
    kOutsideTemplate, kNeedsOption, kNeedsRecord, kNeedsTool, kMarkOutsideSub, kNumberNotKnown, kEmptyAddress,
    kEmptyCode, kCycle, kUnreadKey, kUnusedKey,
    // A drawing with a tuning.
    kUnknownTool, kRadiusAsDirection, kRadiusInInches,
    // Drawings.
    kNoDrawing, kShortRecord, kNotFinite, kBadWord, kWordRange, kWordNotWhole, kDegrees, kMirrorWord, kEmptyWord,
    kCutName, kTooManyWords, kArcCentre, kZeroRadius, kMovedCentre, kRadiusWord, kEarlyRecord, kNoMain,
    kDiscardedPrograms, kCutOff, kTextWithoutLine, kTextInSub, kRecordAsText, kUnitsWord, kRecordCase, kUnknownRecord,
    kLowerLeft, kScale, kSemicolons, kLateMainName, kRepeatedProgram, kUnknownProgram, kFurther,
    // NC text held against its drawing.
    kNotCut, kCutElsewhere, kStrayCut, kCutTwice, kOtherTool, kTextLost, kRapidWhileOn, kChangedWhileOn, kPowerChange,
    kEndWhileOn, kUnresolvedValue, kToolDirection, kTurnInMaterial, kTurnPastZero, kNoMotionCode, kRepeatedWord, kNoArcCentre,
    kHalfCentre, kRadiusTooSmall, kCircleByRadius, kZeroRadiusArc, kUnequalRadii, kUnlikeRadii, kNoFeed,
    kAssumedCentres, kNoSubStart, kUnknownLabel, kOtherLabel, kRepeatedLabel,
    kNoSubEnd, kNoEnd, kTornSubs, kTurnedAfterCall, kUnusedWord, kBadComment, kUnknownCode, kNoUnitCode, kUnreadText, kNotJudged,
};

struct RuleInfo {
    Rule rule;
    std::string_view name;
    Severity severity;
    RuleGroup group;
    std::string_view meaning;  // one sentence
};

namespace rule_table {

using enum Rule;
using enum Severity;
using G = RuleGroup;

inline constexpr RuleInfo kRules[] = {
    {kDroppedLine, "dropped-line", kError, G::kLines, "A line has too few words and is dropped."},
    {kNulByte, "nul-byte", kError, G::kLines, "A line holds a NUL byte and can't be read."},
    {kNotUtf8, "not-utf8", kWarning, G::kLines, "A byte is part of no UTF-8 character."},
    {kComment, "comment", kWarning, G::kLines, "A line looks like a comment, which a tuning can't have."},
    {kUnknownType, "unknown-type", kError, G::kLines, "A line begins with no known type word and is dropped."},
    {kEmptyTemplate, "empty-template", kInfo, G::kLines, "A template has no lines."},
    {kRepeatedKey, "repeated-key", kWarning, G::kLines, "A key is written twice; the last line counts."},
    {kUnknownKey, "unknown-key", kWarning, G::kLines, "Nothing reads a key of this name."},
    {kWrongType, "wrong-type", kError, G::kLines, "A key has another type than it is read with."},
    {kBadBool, "bad-bool", kError, G::kLines, "A value is neither true nor false."},
    {kBadNumber, "bad-number", kError, G::kLines, "A value is not the number that is read from it."},
    {kNotWhole, "not-whole", kError, G::kLines, "A value is no whole number of 32 bits."},
    {kMisplacedExpression, "misplaced-expression", kWarning, G::kLines, "An expression is where none is computed."},
    {kExtraWords, "extra-words", kWarning, G::kLines, "Words after the value are ignored."},
    {kCutText, "cut-text", kError, G::kLines, "A blank or tab ends a text."},
    {kBadNWord, "bad-n-word", kError, G::kLines, "A word of a template is where an N word belongs."},
    {kMissingText, "missing-text", kError, G::kLines, "No text follows the last N word of a template."},

    {kBadTime, "bad-time", kWarning, G::kRunTimeData, "The time of the last change is no time."},
    {kRepeatedDataset, "repeated-dataset", kWarning, G::kRunTimeData, "A dataset is defined twice."},
    {kUnknownDataset, "unknown-dataset", kError, G::kRunTimeData, "A value is for a dataset that is not yet defined."},
    {kNamelessEntry, "nameless-entry", kError, G::kRunTimeData, "A row, column or message has no name."},
    {kSkippedWord, "skipped-word", kWarning, G::kRunTimeData, "A word in place of TEXT is skipped."},
    {kShortValueLine, "short-value-line", kError, G::kRunTimeData, "The line of a dataset's value lacks words."},
    {kBadValueType, "bad-value-type", kError, G::kRunTimeData, "A dataset's value has an unknown type."},
    {kRepeatedValue, "repeated-value", kWarning, G::kRunTimeData, "A dataset has two values for one word."},
    {kBadRunTimeWord, "bad-run-time-word", kWarning, G::kRunTimeWords, "A run-time data word is misspelt."},
    {kUndefinedRunTimeWord, "undefined-run-time-word", kWarning, G::kRunTimeWords,
     "A run-time data word has no row, column or message."},
    {kMissingValue, "missing-value", kWarning, G::kRunTimeWords, "A dataset has no value for a run-time data word."},

    {kBadDecimals, "bad-decimals", kWarning, G::kValues, "There is no format for so many decimals."},
    {kZeroFactor, "zero-factor", kWarning, G::kValues, "A factor is 0."},
    {kZeroStep, "zero-step", kWarning, G::kValues, "The step of block numbers is 0."},
    {kSmallTolerance, "small-tolerance", kWarning, G::kValues, "The tolerance of facets is below the smallest one."},
    {kNoCommentText, "no-comment-text", kWarning, G::kValues, "Error comments are on, but have no opening text."},
    {kNoBlockEnd, "no-block-end", kWarning, G::kValues, "Nothing is written between blocks."},
    {kNoSegmentLimit, "no-segment-limit", kWarning, G::kValues, "Segments are on, but have no limit."},
    {kSmallSegments, "small-segments", kWarning, G::kValues, "Segments hold a few blocks only."},
    {kTextWithoutTool, "text-without-tool", kWarning, G::kValues, "Texts are left out for want of a default tool."},
    {kNoPrimaryTool, "no-primary-tool", kWarning, G::kValues, "The primary tool does not exist."},
    {kNoCentreMode, "no-centre-mode", kWarning, G::kValues, "No way of measuring the centres of arcs is chosen."},
    {kNoSpeedFactor, "no-speed-factor", kWarning, G::kValues, "The factor on speeds is on, but empty."},
    {kNoTemplates, "no-templates", kWarning, G::kValues, "The tuning has no template."},
    {kMissingTemplate, "missing-template", kWarning, G::kValues,
     "A template without which records are lost is missing."},
    {kSeveralChosen, "several-chosen", kWarning, G::kChoices, "Several keys of one choice are true."},
    {kNoneChosen, "none-chosen", kWarning, G::kChoices, "No key of a choice is true."},
    {kBadSpeed, "bad-speed", kError, G::kSpeeds, "A speed or the factor on speeds is no number."},
    {kSmallSpeedFactor, "small-speed-factor", kWarning, G::kSpeeds, "The factor on speeds is too small to count."},
    {kNoSecondSpeed, "no-second-speed", kWarning, G::kSpeeds, "No tool has a speed of parameter 2."},
    {kToolWithoutSpeed, "tool-without-speed", kWarning, G::kSpeeds, "A tool has no speed, but others have."},

    {kNoMirrorCode, "no-mirror-code", kWarning, G::kMissingDirectives,
     "No template writes the code of a mirrored call."},
    {kNoRotationWord, "no-rotation-word", kWarning, G::kMissingDirectives,
     "No template writes the rotation of a call."},
    {kNoFlyCode, "no-fly-code", kWarning, G::kMissingDirectives, "No template switches fly mode."},
    {kNoToolRotation, "no-tool-rotation", kWarning, G::kMissingDirectives, "No template turns a tangential tool."},
    {kNoCallPosition, "no-call-position", kWarning, G::kMissingDirectives, "No template writes where a call is."},
    {kNoModeOfSubs, "no-mode-of-subs", kWarning, G::kMissingDirectives,
     "Nothing says that sub-programs are incremental."},
    {kMainNumberText, "main-number-text", kWarning, G::kMissingDirectives,
     "Programs are numbered from a text that is no number."},

    {kToolOutOfRange, "tool-out-of-range", kWarning, G::kTools, "No run can ask for the tool of these keys."},
    {kUnusedTool, "unused-tool", kInfo, G::kTools, "A tool with keys is marked as unused."},
    {kBadMaster, "bad-master", kWarning, G::kTools, "A subordinate tool has no proper master."},
    {kToolStaysOn, "tool-stays-on", kWarning, G::kTools, "A tool is switched on, but never off."},
    {kChangeWhileOn, "change-while-on", kWarning, G::kTools, "A tool may be changed while it is on."},
    {kNoFacetLimit, "no-facet-limit", kWarning, G::kTools, "Facets of small arcs are on, but have no limits."},
    {kToolWithoutTemplates, "tool-without-templates", kWarning, G::kTools, "A tool has no templates."},

    {kUnclosedWord, "unclosed-word", kWarning, G::kTextSyntax, "A > is missing."},
    {kWordAsText, "word-as-text", kWarning, G::kTextSyntax, "Fixed text looks like a directive or run-time data word."},
    {kUnclosedCharacter, "unclosed-character", kWarning, G::kTextSyntax, "The ) of a chr( is missing."},
    {kBadCharacter, "bad-character", kError, G::kTextSyntax, "The code of a character is no number."},
    {kCharacterRange, "character-range", kWarning, G::kTextSyntax, "The code of a character is not in 0 to 255."},
    {kUnknownDirective, "unknown-directive", kWarning, G::kTextSyntax, "There is no directive of this name."},
    {kUnclosedArguments, "unclosed-arguments", kWarning, G::kTextSyntax, "The ] of a directive is missing."},
    {kUnknownKeyword, "unknown-keyword", kWarning, G::kTextSyntax, "There is no keyword of this name."},
    {kIgnoredKeyword, "ignored-keyword", kInfo, G::kTextSyntax, "The directive ignores this keyword."},
    {kContradiction, "contradiction", kWarning, G::kTextSyntax, "Two keywords contradict each other."},
    {kNoKeywordValue, "no-keyword-value", kWarning, G::kTextSyntax, "A keyword lacks its value."},
    {kExtraKeywordValue, "extra-keyword-value", kWarning, G::kTextSyntax,
     "A keyword has a value that it does not take."},
    {kUnclosedValue, "unclosed-value", kWarning, G::kTextSyntax, "The ) of a keyword's value is missing."},
    {kBadKeywordValue, "bad-keyword-value", kError, G::kTextSyntax,
     "A keyword's value is not the number that is read."},

    {kOutsideTemplate, "outside-template", kWarning, G::kTemplateEvents,
     "A directive has an effect in templates only."},
    {kNeedsOption, "needs-option", kInfo, G::kTemplateEvents, "A directive has no effect under the options."},
    {kNeedsRecord, "needs-record", kWarning, G::kTemplateEvents, "A directive gives nothing at this event's records."},
    {kNeedsTool, "needs-tool", kWarning, G::kTemplateEvents, "A directive is used where no tool is selected."},
    {kMarkOutsideSub, "mark-outside-sub", kWarning, G::kTemplateEvents,
     "A sub-program is marked where none is written."},
    {kNumberNotKnown, "number-not-known", kWarning, G::kTemplateEvents, "The number of a program is not yet known."},
    {kEmptyAddress, "empty-address", kWarning, G::kEmptyAddressesAndCodes,
     "A word is written without an address, or not at all."},
    {kEmptyCode, "empty-code", kWarning, G::kEmptyAddressesAndCodes, "A code that a template writes is empty."},
    {kCycle, "cycle", kWarning, G::kCycles, "The text of an option leads back to itself."},
    {kUnreadKey, "unread-key", kInfo, G::kUnreadKeys, "No run reads a key under the options of the tuning."},
    {kUnusedKey, "unused-key", kInfo, G::kUnreadKeys, "No template has a directive that reads a key."},

    {kUnknownTool, "unknown-tool", kWarning, G::kPairing, "The tuning lacks a tool of the drawing."},
    {kRadiusAsDirection, "radius-as-direction", kWarning, G::kPairing,
     "Radius words give only a direction, but the tuning uses the radius."},
    {kRadiusInInches, "radius-in-inches", kWarning, G::kPairing,
     "Radius words are in inches, and the tuning uses the radius."},

    {kNoDrawing, "no-drawing", kError, G::kDrawing, "A file is no CFF2 drawing."},
    {kShortRecord, "short-record", kWarning, G::kShortRecords, "A record has too few words and is dropped."},
    {kNotFinite, "not-finite", kWarning, G::kInfinite, "A record with a number beyond all limits is dropped."},
    {kBadWord, "bad-word", kWarning, G::kNumbers, "A word of a record is not the number that is read from it."},
    {kWordRange, "word-range", kWarning, G::kNumbers, "A number is beyond the range of its word."},
    {kWordNotWhole, "word-not-whole", kWarning, G::kNumbers, "A number that must be whole has a fraction."},
    {kDegrees, "degrees", kWarning, G::kNumbers, "A rotation is more than a full turn, as degrees would be."},
    {kMirrorWord, "mirror-word", kWarning, G::kNumbers, "A mirror word is neither 0 nor 1."},
    {kEmptyWord, "empty-word", kWarning, G::kMisplacedWords, "Nothing is between two commas."},
    {kCutName, "cut-name", kWarning, G::kMisplacedWords, "A name ends at a blank."},
    {kTooManyWords, "too-many-words", kWarning, G::kMisplacedWords, "A record has more words than are read."},
    {kArcCentre, "arc-centre", kWarning, G::kArcs, "An arc's ends are at unlike distances from its centre."},
    {kZeroRadius, "zero-radius", kWarning, G::kArcs, "A radius word of 0 gives no direction."},
    {kMovedCentre, "moved-centre", kWarning, G::kArcs, "A radius word moves the centre of a long arc."},
    {kRadiusWord, "radius-word", kWarning, G::kArcs, "A radius word is not the radius of its arc."},
    {kEarlyRecord, "early-record", kWarning, G::kPrograms, "A record before the first program is dropped."},
    {kNoMain, "no-main", kWarning, G::kPrograms, "A drawing has no main program."},
    {kDiscardedPrograms, "discarded-programs", kWarning, G::kCutOff, "A second main program discards all before it."},
    {kCutOff, "cut-off", kWarning, G::kCutOff, "The end of a drawing is missing."},
    {kTextWithoutLine, "text-without-line", kWarning, G::kTexts, "A text record lacks its line of text."},
    {kTextInSub, "text-in-sub", kWarning, G::kTexts, "A text in a sub-program is dropped."},
    {kRecordAsText, "record-as-text", kWarning, G::kTextRecords,
     "A record is taken for the text of the one before it."},
    {kUnitsWord, "units-word", kWarning, G::kUnits, "A unit record without a second word has no effect."},
    {kRecordCase, "record-case", kWarning, G::kCase, "A record type is not in upper case."},
    {kUnknownRecord, "unknown-record", kWarning, G::kUnknownRecords, "No record is called so."},
    {kLowerLeft, "lower-left", kWarning, G::kUnknownRecords, "The lower left corner is not read."},
    {kScale, "scale", kLoss, G::kUnknownRecords, "The scale is not read."},
    {kSemicolons, "semicolons", kWarning, G::kUnknownRecords, "Semicolons separate no words."},
    {kLateMainName, "late-main-name", kWarning, G::kNames, "The name of the main program comes too late."},
    {kRepeatedProgram, "repeated-program", kWarning, G::kNames, "A program of this name is there already."},
    {kUnknownProgram, "unknown-program", kWarning, G::kNames, "A called program is not in the drawing."},
    {kFurther, "further", kWarning, G::kDrawing, "So many findings of a kind are left out."},

    {kNotCut, "not-cut", kLoss, G::kNcText, "What is drawn is not cut."},
    {kCutElsewhere, "cut-elsewhere", kLoss, G::kNcText, "A record is cut beside its place, or in another shape."},
    {kStrayCut, "stray-cut", kLoss, G::kNcText, "Something is cut that is not drawn."},
    {kCutTwice, "cut-twice", kLoss, G::kNcText, "A record is cut more often than it is drawn."},
    {kOtherTool, "other-tool", kLoss, G::kNcText, "A record is cut by another tool than its own."},
    {kTextLost, "text-lost", kLoss, G::kNcText, "A text is not written."},
    {kRapidWhileOn, "rapid-while-on", kLoss, G::kNcText, "The machine moves at rapid with the tool on."},
    {kChangedWhileOn, "changed-while-on", kLoss, G::kNcText, "The tool is changed while it is on."},
    {kPowerChange, "power-change", kWarning, G::kNcText, "Another tool is selected while one is on."},
    {kEndWhileOn, "end-while-on", kLoss, G::kNcText, "The NC text ends with the tool on."},
    {kUnresolvedValue, "unresolved-value", kLoss, G::kNcText, "A value could not be evaluated and is left out."},
    {kToolDirection, "tool-direction", kLoss, G::kNcText, "A tangential tool does not point along its cut."},
    {kTurnInMaterial, "turn-in-material", kLoss, G::kNcText, "A tangential tool turns too far in the material."},
    {kTurnPastZero, "turn-past-zero", kWarning, G::kNcText,
     "A tangential tool turns past zero in the material, which some axes do the long way."},
    {kNoMotionCode, "no-motion-code", kLoss, G::kNcText, "A position comes before any code that says how to get there."},
    {kRepeatedWord, "repeated-word", kLoss, G::kNcText, "A line has a word twice, or two codes of a group."},
    {kNoArcCentre, "no-arc-centre", kLoss, G::kNcText, "An arc has neither centre nor radius."},
    {kHalfCentre, "half-centre", kLoss, G::kNcText, "An arc lacks one of its absolute centre words."},
    {kRadiusTooSmall, "radius-too-small", kLoss, G::kNcText, "An arc's radius word does not reach its end."},
    {kCircleByRadius, "circle-by-radius", kLoss, G::kNcText, "A full circle is given by its radius."},
    {kZeroRadiusArc, "zero-radius-arc", kLoss, G::kNcText, "An arc is printed without a radius."},
    {kUnequalRadii, "unequal-radii", kLoss, G::kNcText, "An arc's printed ends are at unlike distances from its centre."},
    {kUnlikeRadii, "unlike-radii", kWarning, G::kNcText,
     "An arc's printed ends are at slightly unlike distances from its centre, which some controllers refuse."},
    {kNoFeed, "no-feed", kWarning, G::kNcText, "A cut comes before any feed word."},
    {kAssumedCentres, "assumed-centres", kLoss, G::kNcText, "Absolute centres are written without the code for them."},
    {kNoSubStart, "no-sub-start", kLoss, G::kNcText, "A sub-program ends that nothing began."},
    {kUnknownLabel, "unknown-label", kLoss, G::kNcText, "A sub-program is called that no text begins."},
    {kOtherLabel, "other-label", kLoss, G::kNcText, "A call names another sub-program than the drawing does."},
    {kRepeatedLabel, "repeated-label", kLoss, G::kNcText, "Two sub-programs have one label."},
    {kNoSubEnd, "no-sub-end", kLoss, G::kNcText, "A sub-program has no end."},
    {kNoEnd, "no-end", kLoss, G::kNcText, "The main program runs on into the sub-programs after it."},
    {kTornSubs, "torn-subs", kLoss, G::kNcText, "Segments take sub-programs away from their calls."},
    {kTurnedAfterCall, "turned-after-call", kLoss, G::kNcText,
     "The rotation or mirror of a call still holds for what is cut after it."},
    {kUnusedWord, "unused-word", kWarning, G::kNcText, "A line has centre or radius words, but no arc."},
    {kBadComment, "bad-comment", kWarning, G::kNcText, "A comment is not closed, or begins within another."},
    {kUnknownCode, "unknown-code", kInfo, G::kNcText, "The reader does not know a G code, and takes it as harmless."},
    {kNoUnitCode, "no-unit-code", kLoss, G::kNcText, "Output is in inches, and no code says so."},
    {kUnreadText, "unread-text", kInfo, G::kNcText, "Literal text can't be read."},
    {kNotJudged, "not-judged", kWarning, G::kNcText, "A job is not judged whole."},
};
// clang-format on

}  // namespace rule_table

constexpr const auto& Rules() { return rule_table::kRules; }

// Null if no rule has that name.
constexpr const RuleInfo* FindRule(std::string_view name) {
    for (const RuleInfo& info : Rules()) {
        if (info.name == name) return &info;
    }
    return nullptr;
}

constexpr const RuleInfo& InfoOf(Rule rule) { return Rules()[static_cast<size_t>(rule)]; }

}  // namespace brindle
