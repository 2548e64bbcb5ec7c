#include "check/tuning/check.h"

namespace brindle {

void CheckAll(const CCheckedTuning& tuning, CFindings& findings) {
    constexpr void (*kChecks[])(const CCheckedTuning&, CFindings&) = {
        CheckLines, CheckRunTimeData, CheckValues, CheckChoices,      CheckSpeeds, CheckMissingWords,
        CheckTools, CheckWords,       CheckPlaces, CheckEmptyOptions, CheckCycles, CheckUnread,
    };
    for (const auto check : kChecks) check(tuning, findings);
}

}  // namespace brindle
