// Exports in any order with any arguments: a byte chooses the export, further ones its arguments.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/text_encoding.h"
#include "unit/odd_calls.h"

namespace {

constexpr size_t kLongest = 600;  // more calls are slow, not new

class CBytes : public brindle::CChoices {
public:
    CBytes(const uint8_t* data, size_t size) : next_(data), end_(data + size) {}
    bool empty() const { return next_ == end_; }

    size_t Below(size_t count) override { return empty() ? 0 : *next_++ % count; }
    // A byte for the length, then so many bytes of UTF-8.
    std::wstring Text() override {
        const size_t length = std::min<size_t>(Below(64), static_cast<size_t>(end_ - next_));
        const std::string text(reinterpret_cast<const char*>(next_), length);
        next_ += length;
        return brindle::NarrowToWide(text);
    }

private:
    const uint8_t* next_;
    const uint8_t* end_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::vector<brindle::OddCall> exports = brindle::AllExports();
    if (size > kLongest) return 0;
    GBrn_ReadTuneLine(L"");  // takes what is left of an earlier line
    GBrn_Clear();
    CBytes bytes(data, size);
    brindle::COddArguments arguments(bytes);
    while (!bytes.empty()) {
        if (exports[bytes.Below(exports.size())](arguments) != 0) std::abort();
        arguments.FreeTexts();
    }
    GBrn_End();
    return 0;
}
