#include "host/console/json_writer.h"

#include <cstdio>
#include <utility>

namespace brindle::host {

void CJsonWriter::Key(std::string_view key) {
    Separate();
    Quote(key);
    out_ += ": ";
    after_key_ = true;
}

void CJsonWriter::Text(std::string_view text) {
    Separate();
    Quote(text);
}

void CJsonWriter::Number(size_t number) { Bare(std::to_string(number)); }

void CJsonWriter::Text(std::string_view key, std::string_view text) {
    Key(key);
    Text(text);
}

void CJsonWriter::Number(std::string_view key, size_t number) {
    Key(key);
    Number(number);
}

void CJsonWriter::NumberOrNull(std::string_view key, size_t number) {
    Key(key);
    number == 0 ? Null() : Number(number);
}

void CJsonWriter::TextOrNull(std::string_view key, std::string_view text) {
    Key(key);
    text.empty() ? Null() : Text(text);
}

std::string CJsonWriter::Take() {
    out_ += '\n';
    return std::exchange(out_, {});
}

void CJsonWriter::Open(char bracket) {
    Separate();
    out_ += bracket;
    ++depth_;
    is_first_ = true;
}

// An empty array or object is closed where it began.
void CJsonWriter::Close(char bracket) {
    --depth_;
    if (!is_first_) out_.append(1, '\n').append(2 * depth_, ' ');
    out_ += bracket;
    is_first_ = false;
}

void CJsonWriter::Bare(std::string_view value) {
    Separate();
    out_ += value;
}

void CJsonWriter::Separate() {
    if (std::exchange(after_key_, false)) return;
    if (!is_first_) out_ += ',';
    if (depth_ > 0) out_.append(1, '\n').append(2 * depth_, ' ');
    is_first_ = false;
}

void CJsonWriter::Quote(std::string_view text) {
    out_ += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            out_.append(1, '\\').append(1, c);
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char code[8];
            std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
            out_ += code;
        } else {
            out_ += c;
        }
    }
    out_ += '"';
}

}  // namespace brindle::host
