// The argument keywords of directives: the table of them and the parsed argument list of one directive.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brindle {

// clang-format off
enum class Keyword : uint8_t {
    kA1, kA2, kWord, kData, kAbs, kInc, kModal, kNonModal, kIncBy, kSetTo,
    kNormal, kSpecial, kMoveTo, kNDec, kFactor, kCos, kSin, kRadial, kSilent,
};
// clang-format on
inline constexpr size_t kKeywordCount = 19;

// A set of keywords.
class KeywordSet {
public:
    constexpr KeywordSet() = default;
    template <typename... Rest>
    constexpr explicit KeywordSet(Keyword first, Rest... rest) : bits_((Bit(first) | ... | Bit(rest))) {}
    constexpr bool Has(Keyword keyword) const { return (bits_ & Bit(keyword)) != 0; }
    constexpr void Add(Keyword keyword) { bits_ |= Bit(keyword); }
    constexpr KeywordSet operator|(KeywordSet other) const {
        KeywordSet both;
        both.bits_ = bits_ | other.bits_;
        return both;
    }

private:
    static constexpr uint32_t Bit(Keyword keyword) { return uint32_t{1} << static_cast<unsigned>(keyword); }
    uint32_t bits_ = 0;
};

// One row of the keyword table. The order is that of Keyword.
struct KeywordInfo {
    Keyword keyword;
    int number;  // place in the chooser of the template editor
    std::string_view name;
    std::string_view form;     // as it is written
    std::string_view meaning;  // one sentence

    // Whether it is one of those with a value in parentheses.
    constexpr bool TakesValue() const { return form != name; }
};
std::span<const KeywordInfo> KeywordTable();

// The argument list of one directive, parsed once when its template is compiled.
//
// Arguments are between `[` and `]`, separated by commas, blanks or both, in any case; what follows a `]` counts as
// further arguments. A keyword is found where it is a word of its own. A value in parentheses is found wherever
// its keyword's letters first occur: the character after them is skipped and the number goes on to the next `)`.
class CAtDirKeywords {
public:
    CAtDirKeywords() = default;
    // Parses the arguments of `directive` (`@Name[ARGS]`) and cuts them off, which leaves the bare name.
    explicit CAtDirKeywords(std::string& directive);

    bool HasWord(Keyword keyword) const { return words_.Has(keyword); }
    bool WantAddress(bool by_default) const;   // WORD wins over DATA
    bool WantModal(bool by_default) const;     // MODAL wins over NONMODAL
    bool WantAbsolute(bool by_default) const;  // INC wins over ABS
    bool WantAxis1(bool by_default) const { return by_default && !HasWord(Keyword::kA2); }
    bool WantAxis2(bool by_default) const { return by_default && !HasWord(Keyword::kA1); }
    // Values: the default if the keyword or its closing parenthesis is missing, 0 for text that is no number.
    int32_t NDec(int32_t by_default) const { return n_dec_.value_or(by_default); }
    int32_t IncBy(int32_t by_default) const { return inc_by_.value_or(by_default); }
    double Factor(double by_default) const { return factor_.value_or(by_default); }
    double SetTo(double by_default) const { return set_to_.value_or(by_default); }
    // The value of one of these, nothing where the default counts and for a keyword without values.
    std::optional<double> ValueOf(Keyword keyword) const;

    // The arguments in upper case with a blank in front, commas and `]` turned into blanks; empty without a `[`.
    const std::string& value_text() const { return value_text_; }
    // The words of the argument list.
    std::string word_text() const;
    KeywordSet words() const { return words_; }

private:
    std::optional<std::string> ValueTextOf(Keyword keyword) const;

    std::string value_text_;
    KeywordSet words_;
    std::optional<int32_t> n_dec_, inc_by_;
    std::optional<double> factor_, set_to_;
};

}  // namespace brindle
