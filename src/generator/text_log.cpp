#include "generator/text_log.h"

#include <algorithm>
#include <cstring>

namespace brindle {
namespace {

// A chunk holds an eighth of what is there, so that little of it is room to spare.
constexpr size_t kSmallestChunk = 256;
constexpr size_t kLargestChunk = size_t{1} << 16;
constexpr size_t kChunkShare = 8;
constexpr size_t kLongestHead = 10;
constexpr int kTagBits = 2;
constexpr size_t kTagMask = (size_t{1} << kTagBits) - 1;

// Writes `value` in groups of seven bits, lowest first, and gives the place after it.
char* WriteNumber(char* to, size_t value) {
    for (; value >= 0x80; value >>= 7) *to++ = static_cast<char>((value & 0x7F) | 0x80);
    *to++ = static_cast<char>(value);
    return to;
}

size_t ReadNumber(const char*& from) {
    size_t value = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*from++);
        value |= static_cast<size_t>(byte & 0x7F) << shift;
        if (byte < 0x80) return value;
    }
}

}  // namespace

std::string_view CTextLog::Add(uint8_t tag, std::string_view text) {
    const size_t most_bytes = kLongestHead + text.size();
    if (chunks_.empty() || chunks_.back().capacity - chunks_.back().size < most_bytes) AddChunk(most_bytes);
    Chunk& chunk = chunks_.back();
    if (count_ % kStride == 0) marks_.push_back({chunks_.size() - 1, chunk.size});
    char* const start = chunk.bytes.get() + chunk.size;
    char* const characters = WriteNumber(start, (text.size() << kTagBits) | tag);
    if (!text.empty()) std::memcpy(characters, text.data(), text.size());
    chunk.size += static_cast<size_t>(characters - start) + text.size();
    ++count_;
    return {characters, text.size()};
}

void CTextLog::Clear() {
    chunks_.clear();
    marks_.clear();
    count_ = 0;
    total_ = 0;
}

void CTextLog::AddChunk(size_t bytes) {
    const size_t capacity = std::max(std::clamp(total_ / kChunkShare, kSmallestChunk, kLargestChunk), bytes);
    total_ += capacity;
    chunks_.push_back({std::unique_ptr<char[]>(new char[capacity]), 0, capacity});
}

CTextLog::Entry CTextLog::ReadAt(Place& place) const {
    if (place.offset == chunks_[place.chunk].size) place = {place.chunk + 1, 0};
    const Chunk& chunk = chunks_[place.chunk];
    const char* at = chunk.bytes.get() + place.offset;
    const size_t head = ReadNumber(at);
    const auto tag = static_cast<uint8_t>(head & kTagMask);
    const size_t length = head >> kTagBits;
    place.offset = static_cast<size_t>(at - chunk.bytes.get()) + length;
    return {tag, {at, length}};
}

CTextLog::Entry CTextLog::Get(size_t index) const {
    Place place = marks_[index / kStride];
    for (size_t skip = index % kStride; skip > 0; --skip) ReadAt(place);
    return ReadAt(place);
}

CTextLog::Entry CTextLog::Reader::Next() {
    Place place{chunk_, offset_};
    const Entry entry = log_->ReadAt(place);
    chunk_ = place.chunk;
    offset_ = place.offset;
    ++read_;
    return entry;
}

}  // namespace brindle
