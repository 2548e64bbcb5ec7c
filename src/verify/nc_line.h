// A line of NC text read as a controller of the RS-274 family reads it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "generator/run_options.h"

namespace brindle {

// What a word of a line is to the machine.
enum class NcAddress : uint8_t { kAxis1, kAxis2, kCentre1, kCentre2, kRadius, kSubtended, kToolAngle, kFeed, kOther };

struct NcWord {
    NcAddress address;
    char letter;  // upper case; of kOther
    double value;
};

struct NcLine {
    std::vector<NcWord> words;
    std::string unread;        // the first piece that is no word; empty if all is read
    bool bad_comment = false;  // one is not closed, or begins within another
    std::string plain;         // memory for the line without comments
    std::string label;         // what follows an O or a colon at the front, as `100 SUB`; then there are no words
};

// Reads lines by the addresses of a tuning, which may be longer than a letter, and single letters beside them.
// Comments, block numbers, labels (`O100`, `:100`, `%`) and marks of dwells are no words.
class CNcLineReader {
public:
    explicit CNcLineReader(const RunOptions& options);

    // Whether both axes have a letter of their own: without them no line can be read.
    bool CanRead() const { return can_read_; }
    void Read(std::string_view text, NcLine& line) const;

private:
    struct Address {
        std::string text;  // upper case
        NcAddress address;
    };

    void Add(const OptionText& option, NcAddress address);
    void StandardCentres();
    const Address* AddressAt(std::string_view text) const;

    std::vector<Address> addresses_;             // the longest ones first
    std::array<bool, 256> begins_address_ = {};  // by character
    bool can_read_ = false;
};

}  // namespace brindle
