// `chr(n)` words in NC text, by which a tuning puts any character into the output.
#pragma once

#include <string>

namespace brindle {

// Replaces each `chr(n)` in `text` by the character of code n modulo 256, from the front, until none is left: the
// result may form further words together with what surrounds it. What is no number counts as 0. Without a `)` after it
// the word goes on to the end of the text, whose last character takes the place of the `)`. Linear in the length of the
// text.
void ExpandCharCodes(std::string& text);

}  // namespace brindle
