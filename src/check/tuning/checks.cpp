#include "check/tuning/checks.h"

namespace brindle {

void CheckAll(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    constexpr void (*kChecks[])(const CPlacedTuning&, CDiagnostics&) = {
        CheckLines,          CheckRunTimeData,
        CheckValues,         CheckChoices,
        CheckSpeeds,         CheckMissingDirectives,
        CheckTools,          CheckTextSyntax,
        CheckTemplateEvents, CheckEmptyAddressesAndCodes,
        CheckEqualAddresses, CheckCutTemplates,
        CheckLiterals,       CheckModalData,
        CheckCycles,         CheckUnreadKeys,
    };
    for (const auto check : kChecks) check(tuning, diagnostics);
}

}  // namespace brindle
