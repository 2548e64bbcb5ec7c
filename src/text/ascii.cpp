#include "text/ascii.h"

#include <algorithm>

namespace brindle {

int CompareNoCase(std::string_view a, std::string_view b) {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
        const int difference =
            static_cast<unsigned char>(LowerAscii(a[i])) - static_cast<unsigned char>(LowerAscii(b[i]));
        if (difference != 0) return difference;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

bool EqualNoCase(std::string_view a, std::string_view b) { return a.size() == b.size() && CompareNoCase(a, b) == 0; }

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = UpperAscii(c);
    return upper;
}

}  // namespace brindle
