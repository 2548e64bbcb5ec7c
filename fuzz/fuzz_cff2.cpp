// Drawings: any bytes as a CFF2 file, output with its calls and then with its calls expanded.
#include <cstdint>
#include <string>

#include "session/session.h"

namespace {

constexpr size_t kLongest = 4000;  // a longer drawing is slow, not new

void SetTemplate(brindle::CSession& session, const std::string& event, const std::string& text) {
    session.tuning.SetMulti(event + "_tTmpl", {{{}, text}});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kLongest) return 0;
    brindle::CSession session;
    SetTemplate(session, "Move", "<@StartPtWords[INC]>");
    SetTemplate(session, "Line", "<@EndPtWords><@AtAngle><@CutWidth><@BridgeWidth>");
    SetTemplate(session, "Arc", "<@EndPtWords><@ArcDataWords><@Radius><@Subtended><@MidPtWords><@FinAngle>");
    SetTemplate(session, "Text", "<@TextDataWord><@TextHgtWord><@TextRotWord>");
    SetTemplate(session, "SubCall", "<@IncludePtWords><@IncludeNum>");
    SetTemplate(session, "MainInit", "<@LowerLeft>");
    for (const char* flag : {"bDefaultTool", "bUseText", "T_bTangential", "bOutUnitsAuto", "T_SmFacet_bUse"}) {
        session.tuning.SetBool(flag, 1);
    }
    session.tuning.SetReal("T_SmFacet_rMaxRadiusMM", 5.0);
    session.tuning.SetReal("T_SmFacet_rLiftAngleDEG", 7.0);
    session.tuning.SetReal("rMaxOrdIN", 1e6);
    session.TakeDrawing({reinterpret_cast<const char*>(data), size});
    brindle::RunJob(session);
    session.tuning.SetBool("bUseSubs", 0);
    session.tuning.SetBool("bArcByRad", 1);
    brindle::RunJob(session);
    return 0;
}
