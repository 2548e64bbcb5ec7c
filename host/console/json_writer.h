// JSON text, written from the outside in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindle::host {

// Each value goes where the one before it left off: Key() within an object, then its value. Texts must be UTF-8.
class CJsonWriter {
public:
    void BeginObject() { Open('{'); }
    void EndObject() { Close('}'); }
    void BeginArray() { Open('['); }
    void EndArray() { Close(']'); }
    void Key(std::string_view key);
    void Text(std::string_view text);
    void Number(size_t number);
    void Null() { Bare("null"); }

    // A key and its value.
    void Text(std::string_view key, std::string_view text);
    void Number(std::string_view key, size_t number);
    // 0 stands for none.
    void NumberOrNull(std::string_view key, size_t number);
    void TextOrNull(std::string_view key, std::string_view text);

    // The whole document, with a line end.
    std::string Take();

private:
    void Open(char bracket);
    void Close(char bracket);
    void Bare(std::string_view value);
    void Separate();
    void Quote(std::string_view text);

    std::string out_;
    size_t depth_ = 0;
    bool is_first_ = true;  // in its array or object
    bool after_key_ = false;
};

}  // namespace brindle::host
