// The vocabulary of templates: one table of all directives. What evaluates them is the generator's.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "language/keywords.h"

namespace brindle {

// A directive as a number. The order is that of the table.
// clang-format off
enum class DirectiveId : uint8_t {
    kInterpCode, kStartPtWords, kEndPtWords, kCenPtWords, kMidPtWords, kArcDataWords, kRadius, kSubtended, kArcSign,
    kSetToolDir, kAtAngle, kFinAngle, kTangAuxCode1, kTangAuxCode2,
    kToolId, kLineType, kCutWidth, kBridgeWidth, kBridgeNum, kSpeedWords, kFlyModeCode,
    kTextDataWord, kTextRotWord, kTextHgtWord,
    kMainProgNum, kCurProgName, kIncludeNum, kIncludeName, kCurProgNum, kNumOfSubs, kMarkAsSub,
    kIncludePtWords, kIncludeMirCode, kIncludeMirResetCode, kIncludeRotWord, kIncludeRotResetWord,
    kDate, kTime, kCADFile, kOutputFile, kMaterialFile, kDataSetName, kTuneFile, kTuneMenuPick, kDrvVersion,
    kAbsIncCode, kUnitsCode, kGrainCode, kSideCode,
    kBlankX, kBlankY, kOverallSize, kLowerLeft, kUpperRight, kRotaryRadius,
    kNBlockOff, kNBlockOn,
    kIODwell,
};
// clang-format on
inline constexpr size_t kDirectiveCount = static_cast<size_t>(DirectiveId::kIODwell) + 1;

// Whether a directive switches block numbers before its line is resolved.
enum class Numbering : uint8_t { kNone, kOn, kOff };

// The records for which a directive gives text; any other gets nothing, without a message.
enum class RecordNeed : uint8_t { kAny, kArc, kArcOrLine, kText, kInclude };

// One row of the directive table. Names are compared exactly.
struct DirectiveInfo {
    DirectiveId id;
    int number;  // place in the chooser of the template editor; a gap of numbers starts a new group
    std::string_view name;
    std::string_view group;
    KeywordSet keywords;        // those it looks at; all others are ignored
    std::string_view defaults;  // what holds without keywords, where that is an option's choice
    RecordNeed need;
    std::string_view gives;  // one sentence
    Numbering numbering = Numbering::kNone;
};

// In order of their numbers.
std::span<const DirectiveInfo> DirectiveTable();

const DirectiveInfo& Info(DirectiveId id);

// The directive of that name, null if there is none.
const DirectiveInfo* FindDirective(std::string_view name);

}  // namespace brindle
