#include "host/post/nc_text.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "api/brindle_mgr.h"
#include "brindle/brindle.h"
#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

constexpr const char* kNoMemory = "not enough memory for this job";

// A string that the library gave us; its view has no data if there was no memory for it.
class CSystemString {
public:
    CSystemString() = default;
    CSystemString(const CSystemString&) = delete;
    CSystemString& operator=(const CSystemString&) = delete;
    ~CSystemString() { SysFreeString(text_); }

    wchar_t** out() { return &text_; }
    std::wstring_view view() const { return {text_, SysStringLen(text_)}; }

private:
    wchar_t* text_ = nullptr;
};

// `text` is what lies between NULs, so it ends with one.
void AppendUtf8(std::wstring_view text, std::string& out) {
    for (size_t nul = text.find(L'\0'); nul != std::wstring_view::npos; nul = text.find(L'\0')) {
        out.append(WideToNarrow(text.data())).push_back('\0');
        text.remove_prefix(nul + 1);
    }
    out.append(WideToNarrow(text.data()));
}

std::string CodeText(wchar_t character) {
    char code[16];
    std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(character));
    return code;
}

class CFetcher {
public:
    explicit CFetcher(Encoding encoding) : encoding_(encoding) { GBrn_GetIODwellStr(marker_.out()); }

    NcText Fetch() {
        short count = 0;
        GBrn_GetNumOfBuffers(&count);
        // The exported count has 16 bits, and so have the numbers of buffers.
        const int all = CBrindleMgr::Current().buffers.GetNumOfBuffers();
        if (all != count) {
            nc_.fault = "the tuning cuts the NC text into " + std::to_string(all) + " segments: too many";
            return std::move(nc_);
        }
        for (int number = 1; number <= count; ++number) FetchBuffer(static_cast<short>(number));
        if (count == 0) nc_.segments.emplace_back();
        if (CBrindleMgr::WorkLost()) nc_.fault = kNoMemory;
        return std::move(nc_);
    }

private:
    void FetchBuffer(short number) {
        std::string& segment = nc_.segments.emplace_back();
        GBrn_SetCurBuffer(number);
        int more = 0;
        for (GBrn_CurBufferHasMoreData(&more); more != 0; GBrn_CurBufferHasMoreData(&more)) {
            CSystemString piece;
            GBrn_GetOutputBuffer(piece.out());
            if (piece.view().data() == nullptr) {
                nc_.fault = kNoMemory;
                return;
            }
            if (piece.view().starts_with(marker_.view())) {
                ++nc_.dwells;
            } else if (encoding_ == Encoding::kUtf8) {
                AppendUtf8(piece.view(), segment);
            } else {
                AppendLatin1(piece.view(), segment);
            }
        }
    }

    void AppendLatin1(std::wstring_view text, std::string& out) {
        for (const wchar_t character : text) {
            if (character > 0xFF && nc_.fault.empty()) nc_.fault = FaultOf(character, out);
            out.push_back(static_cast<char>(character));
        }
    }

    static std::string FaultOf(wchar_t character, const std::string& before) {
        const auto line = std::count(before.begin(), before.end(), '\n') + 1;
        return "line " + std::to_string(line) + " of the NC text has the character " + CodeText(character) +
               ", which Latin-1 lacks";
    }

    Encoding encoding_;
    CSystemString marker_;
    NcText nc_;
};

}  // namespace

NcText FetchNcText(Encoding encoding) { return CFetcher(encoding).Fetch(); }

}  // namespace brindle::host
