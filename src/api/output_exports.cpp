// Exports of the output.
#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

int GBrn_End(void) {
    return Export([&] {
        CSession& session = Session();
        if (!CBrindleMgr::WorkLost()) RunJob(session);
    });
}

int GBrn_GetNumOfBuffers(short* count) {
    return Export([&] { Out(count, static_cast<short>(Session().buffers.GetNumOfBuffers())); });
}

int GBrn_SetCurBuffer(short number) {
    return Export([&] { Session().buffers.SetCurBuffer(number); });
}

int GBrn_CurBufferHasMoreData(int* more) {
    return Export([&] { Out(more, Session().buffers.CurBufferHasMoreData() ? 1 : 0); });
}

int GBrn_GetOutputBuffer(wchar_t** text) {
    return Export([&] {
        CBufferMgr& buffers = Session().buffers;
        if (Out(text, buffers.NextPiece())) buffers.GetOutputBuffer();
    });
}

int GBrn_GetIODwellStr(wchar_t** text) {
    return Export([&] {
        Session();
        Out(text, kDwellMarker);
    });
}
