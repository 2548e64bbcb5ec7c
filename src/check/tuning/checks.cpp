#include "check/tuning/checks.h"

namespace brindle {

void CheckAll(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    constexpr void (*kChecks[])(const CPlacedTuning&, CDiagnostics&) = {
        CheckLines, CheckRunTimeData, CheckValues, CheckChoices,      CheckSpeeds, CheckMissingWords,
        CheckTools, CheckWords,       CheckEvents, CheckEmptyOptions, CheckCycles, CheckUnread,
    };
    for (const auto check : kChecks) check(tuning, diagnostics);
}

}  // namespace brindle
