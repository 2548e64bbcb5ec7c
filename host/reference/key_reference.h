// The reference of what a tuning can hold: its keys, the events of its templates, the lines of its run-time data. Made
// from the catalogue of keys.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindle::host {

// What `pattern` asks for, in tables under their headings: all for an empty pattern, all below the heading that it is,
// else what holds each of its words, in any letter case, in its name or its meaning. Lines have at most `width`
// characters, 0 is no limit. Empty if nothing is found.
std::string KeyList(std::string_view pattern, size_t width);

// All on a key that is written in full, a tool's with or without its prefix, and a line of a tuning to copy, with the
// value that a run takes where the key is missing. Empty if it is no key.
std::string KeyEntry(std::string_view key, size_t width);

// The whole reference as a page in Markdown.
std::string KeyPage();

}  // namespace brindle::host
