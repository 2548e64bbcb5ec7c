// A list of many short texts in few heap blocks: the pieces of an output buffer, the records of a trace.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace brindle {

// Texts with a small tag each, in order of arrival. Adding costs the copy of the text; the overhead is a few bytes per
// text. Views stay valid until Clear or the log's end.
class CTextLog {
public:
    struct Entry {
        uint8_t tag;
        std::string_view text;
    };

    // Gives the text as it is kept.
    std::string_view Add(uint8_t tag, std::string_view text);
    void Clear();
    size_t size() const { return count_; }

    // Entry `index`, which must be below size(). Constant time: at most kStride entries are stepped over.
    Entry Get(size_t index) const;

    // Reads entries in order, each once. Stays valid while entries are added.
    class Reader {
    public:
        explicit Reader(const CTextLog& log) : log_(&log) {}
        bool AtEnd() const { return read_ == log_->count_; }
        // The next entry; there must be one.
        Entry Next();

    private:
        const CTextLog* log_;
        size_t read_ = 0;
        size_t chunk_ = 0;
        size_t offset_ = 0;
    };

private:
    static constexpr size_t kStride = 64;

    // An entry is its length and tag in one number and its characters, and never crosses a chunk's end.
    struct Chunk {
        std::unique_ptr<char[]> bytes;
        size_t size = 0;
        size_t capacity = 0;
    };
    struct Place {
        size_t chunk;
        size_t offset;
    };

    void AddChunk(size_t bytes);
    // The entry at `place`, which moves to the following entry.
    Entry ReadAt(Place& place) const;

    std::vector<Chunk> chunks_;
    std::vector<Place> marks_;  // of every kStride-th entry
    size_t count_ = 0;
    size_t total_ = 0;  // capacity of all chunks
};

}  // namespace brindle
