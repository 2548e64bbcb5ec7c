// The text of the benchmark jobs written by hand, as a program for one controller alone would write it: the floors that
// a run is measured against.
#pragma once

#include <cstdint>
#include <string>

namespace brindle::bench {

enum class Writer {
    kPrintf,   // one snprintf per block
    kToChars,  // one std::to_chars per number
};

// Each gives the bytes that the run of its job gives.
std::string LinesByHand(int64_t records, Writer writer);
std::string ArcsByHand(int64_t records, Writer writer);
std::string TangentialByHand(int64_t records, Writer writer);
std::string CallsByHand(int64_t records, Writer writer);
std::string ToolsByHand(int64_t records, Writer writer);

}  // namespace brindle::bench
