// Exports of the output.
#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

int GBrn_End(void) {
    Session().RunOutput();
    return 0;
}

int GBrn_GetNumOfBuffers(short* count) {
    Out(count, static_cast<short>(Session().buffers.GetNumOfBuffers()));
    return 0;
}

int GBrn_SetCurBuffer(short number) {
    Session().buffers.SetCurBuffer(number);
    return 0;
}

int GBrn_CurBufferHasMoreData(int* more) {
    Out(more, Session().buffers.CurBufferHasMoreData() ? 1 : 0);
    return 0;
}

int GBrn_GetOutputBuffer(wchar_t** text) {
    const std::string_view piece = Session().buffers.GetOutputBuffer();
    Out(text, piece);
    return 0;
}

int GBrn_GetIODwellStr(wchar_t** text) {
    Session();
    Out(text, kDwellMarker);
    return 0;
}
