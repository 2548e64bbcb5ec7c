#include "verify/nc_line.h"

#include <algorithm>

#include "generator/buffer_mgr.h"
#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle {
namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool IsPlain(std::string_view text) {
    const auto changes = [](char c) { return c == '(' || c == ';' || (c >= 'a' && c <= 'z'); };
    return std::none_of(text.begin(), text.end(), changes) && text.find(kDwellMarker) == std::string_view::npos;
}

// The host cuts them out of the NC text.
void TakeOutDwells(std::string& plain) {
    for (size_t at; (at = plain.find(kDwellMarker)) != std::string::npos;) {
        size_t last = at + kDwellMarker.size();
        if (last < plain.size() && plain[last] == '[') last = std::min(plain.find(']', last), plain.size() - 1) + 1;
        plain.erase(at, last - at);
    }
}

// `text` in upper case, without comments and dwells. If that is another text, it is made in `plain`.
std::string_view PlainText(std::string_view text, std::string& plain, bool& bad_comment) {
    bad_comment = false;
    if (IsPlain(text)) return text;
    plain.clear();
    bool in_comment = false;
    for (const char c : text) {
        if (in_comment) {
            bad_comment |= c == '(';
            in_comment = c != ')';
        } else if (c == '(') {
            in_comment = true;
        } else if (c == ';') {
            break;
        } else {
            plain.push_back(UpperAscii(c));
        }
    }
    bad_comment |= in_comment;
    TakeOutDwells(plain);
    return plain;
}

// Takes an expression in brackets or a parameter off the front of `text`, as `[600*0.5]`, `#100` or `#<feed>`.
bool TakeExpression(std::string_view& text) {
    if (text.empty() || (text[0] != '[' && text[0] != '#')) return false;
    const bool is_named = text.starts_with("#<");
    size_t depth = 0;
    size_t last = 0;
    do {
        if (text[last] == '[' || (is_named && text[last] == '<')) ++depth;
        if (text[last] == ']' || (is_named && text[last] == '>')) --depth;
        ++last;
    } while (last < text.size() && (depth > 0 || last == 1 || (!is_named && text[0] == '#' && IsDigit(text[last]))));
    text.remove_prefix(last);
    return depth == 0;
}

// Whether a line only gives a parameter a value.
bool IsAssignment(std::string_view text) {
    if (!text.starts_with('#') || !TakeExpression(text)) return false;
    while (!text.empty() && IsBlank(text[0])) text.remove_prefix(1);
    return text.starts_with('=');
}

// Takes a number off the front of `text`.
std::optional<double> TakeNumber(std::string_view& text) {
    size_t at = 0;
    while (at < text.size() && IsBlank(text[at])) ++at;
    size_t last = at;
    if (last < text.size() && text[last] == '+') ++last;
    if (last < text.size() && text[last] == '-') ++last;
    while (last < text.size() && (IsDigit(text[last]) || text[last] == '.')) ++last;
    const std::optional<double> value = ParseNumber(text.substr(at, last - at));
    if (value) text.remove_prefix(last);
    return value;
}

constexpr double kSomeSpeed = 1.0;  // for one that is computed by the controller

std::string_view PieceAt(std::string_view text) {
    size_t last = 0;
    while (last < text.size() && !IsBlank(text[last])) ++last;
    return text.substr(0, last);
}

}  // namespace

CNcLineReader::CNcLineReader(const RunOptions& options) {
    for (int axis = 0; axis < 2; ++axis) {
        Add(options.axes.address[axis], axis == 0 ? NcAddress::kAxis1 : NcAddress::kAxis2);
    }
    can_read_ = !options.axes.start_end_on_block && addresses_.size() == 2 && addresses_[0].text != addresses_[1].text;
    Add(options.arcs.center_address[0], NcAddress::kCentre1);
    Add(options.arcs.center_address[1], NcAddress::kCentre2);
    Add(options.arcs.radius_address, NcAddress::kRadius);
    if (options.arcs.by_subtended) Add(options.arcs.subtended_address, NcAddress::kSubtended);
    Add(options.rotation.address, NcAddress::kToolAngle);
    Add(options.speed.address[0], NcAddress::kFeed);
    const auto has = [this](NcAddress wanted) {
        return std::any_of(addresses_.begin(), addresses_.end(), [=](const Address& a) { return a.address == wanted; });
    };
    if (!has(NcAddress::kCentre1)) addresses_.push_back({"I", NcAddress::kCentre1});
    if (!has(NcAddress::kCentre2)) addresses_.push_back({"J", NcAddress::kCentre2});
    if (!has(NcAddress::kRadius)) addresses_.push_back({"R", NcAddress::kRadius});
    if (!has(NcAddress::kFeed)) addresses_.push_back({"F", NcAddress::kFeed});
    StandardCentres();
    std::stable_sort(addresses_.begin(), addresses_.end(),
                     [](const Address& a, const Address& b) { return a.text.size() > b.text.size(); });
    for (const Address& address : addresses_) begins_address_[static_cast<unsigned char>(address.text[0])] = true;
}

// Where axes and centres have their usual letters, I belongs to X, whatever the tuning says.
void CNcLineReader::StandardCentres() {
    for (Address& centre : addresses_) {
        if (centre.address != NcAddress::kCentre1 && centre.address != NcAddress::kCentre2) continue;
        const size_t letter = std::string_view("IJK").find(centre.text);
        if (centre.text.size() != 1 || letter == std::string_view::npos) continue;
        for (const Address& axis : addresses_) {
            const bool is_its_axis = axis.text.size() == 1 && axis.text[0] == "XYZ"[letter];
            if (is_its_axis && axis.address == NcAddress::kAxis1) centre.address = NcAddress::kCentre1;
            if (is_its_axis && axis.address == NcAddress::kAxis2) centre.address = NcAddress::kCentre2;
        }
    }
}

// The last piece of an option is the address: `G0 C` turns with a code of its own.
void CNcLineReader::Add(const OptionText& option, NcAddress address) {
    if (option.empty || !option.text.is_constant()) return;
    std::string text = UpperCase(option.text.constant());
    while (!text.empty() && IsBlank(text.back())) text.pop_back();
    const size_t blank = text.find_last_of(" \t");
    if (blank != std::string::npos) text.erase(0, blank + 1);
    if (!text.empty() && IsLetter(text[0])) addresses_.push_back({text, address});
}

const CNcLineReader::Address* CNcLineReader::AddressAt(std::string_view text) const {
    if (!begins_address_[static_cast<unsigned char>(text[0])]) return nullptr;
    const auto found = std::find_if(addresses_.begin(), addresses_.end(),
                                    [text](const Address& address) { return text.starts_with(address.text); });
    return found == addresses_.end() ? nullptr : &*found;
}

void CNcLineReader::Read(std::string_view text, NcLine& line) const {
    line.words.clear();
    line.unread.clear();
    line.label.clear();
    std::string_view rest = PlainText(text, line.plain, line.bad_comment);
    bool is_first = true;
    while (!rest.empty()) {
        if (IsBlank(rest[0]) || rest[0] == '/') {
            rest.remove_prefix(1);
            continue;
        }
        if (rest[0] == '#' && IsAssignment(rest)) return;
        const Address* const known = AddressAt(rest);
        const bool is_label = is_first && known == nullptr && (rest[0] == '%' || rest[0] == 'O' || rest[0] == ':');
        if (is_label) {
            line.label = rest[0] == '%' ? "%" : rest.substr(1);
            return;
        }
        std::string_view after = rest.substr(known != nullptr ? known->text.size() : 1);
        const std::optional<double> value = known != nullptr || IsLetter(rest[0]) ? TakeNumber(after) : std::nullopt;
        // The value of a speed makes no difference to the way.
        const bool is_speed = known != nullptr ? known->address == NcAddress::kFeed : rest[0] == 'S';
        if (!value && is_speed && TakeExpression(after)) {
            line.words.push_back({known != nullptr ? NcAddress::kFeed : NcAddress::kOther, rest[0], kSomeSpeed});
            is_first = false;
            rest = after;
            continue;
        }
        if (!value) {
            line.unread = PieceAt(rest);
            return;
        }
        const bool is_number = known == nullptr && rest[0] == 'N';
        if (!is_number) {
            line.words.push_back({known != nullptr ? known->address : NcAddress::kOther, rest[0], *value});
        }
        is_first &= is_number;
        rest = after;
    }
}

}  // namespace brindle
