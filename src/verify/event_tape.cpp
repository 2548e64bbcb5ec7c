#include "verify/event_tape.h"

#include <cstring>
#include <type_traits>

namespace brindle {
namespace {

// All of a word but its text.
struct WordHead {
    explicit WordHead(const LoggedWord& word)
        : kind(word.kind),
          fate(word.fate),
          axis(word.axis),
          at_start(word.at_start),
          absolute(word.absolute),
          resets(word.resets),
          motion(word.motion) {}
    WordHead() = default;

    WordKind kind;
    WordFate fate;
    uint8_t axis;
    bool at_start, absolute, resets;
    MotionCode motion;
};

}  // namespace

// ---- Writing ----

template <class T>
void CEventTape::Put(const T& value) {
    static_assert(std::is_trivially_copyable_v<T>);
    bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void CEventTape::PutNumber(uint64_t number) {
    for (; number >= 0x80; number >>= 7) bytes_.push_back(static_cast<char>(number | 0x80));
    bytes_.push_back(static_cast<char>(number));
}

void CEventTape::PutText(std::string_view text) {
    PutNumber(text.size());
    bytes_ += text;
}

void CEventTape::RecordStarts(int32_t program, int32_t index) {
    Put(Kind::kRecordStarts);
    PutNumber(static_cast<uint32_t>(program));
    PutNumber(static_cast<uint32_t>(index));
}

void CEventTape::RecordEnds(bool words_pending) {
    Put(Kind::kRecordEnds);
    Put(words_pending);
}

void CEventTape::RecordDropped(DropReason reason) {
    Put(Kind::kRecordDropped);
    Put(reason);
}

void CEventTape::ArcAsLines(bool facets) {
    Put(Kind::kArcAsLines);
    Put(facets);
}

void CEventTape::CallStarts(const CNCIncludeData& record, int32_t variant) {
    Put(Kind::kCallStarts);
    Put(&record);
    Put(variant);
}

void CEventTape::ExpansionStarts(const CNCIncludeData& record) {
    Put(Kind::kExpansionStarts);
    Put(&record);
}

void CEventTape::TemplateStarts(const CompiledTemplate& compiled, int32_t tool) {
    Put(Kind::kTemplateStarts);
    Put(&compiled);
    Put(tool);
}

void CEventTape::TemplateLine(size_t line, std::string_view text) {
    Put(Kind::kTemplateLine);
    PutNumber(line);
    PutText(text);
}

void CEventTape::Word(const LoggedWord& word) {
    Put(Kind::kWord);
    Put(WordHead(word));
    PutText(word.text);
}

void CEventTape::Unresolved(std::string_view what) {
    Put(Kind::kUnresolved);
    PutText(what);
}

void CEventTape::BlockWritten(std::string_view block, size_t trace_index) {
    Put(Kind::kBlockWritten);
    PutText(block);
    PutNumber(trace_index);
}

void CEventTape::CommentWritten(std::string_view block) {
    Put(Kind::kCommentWritten);
    PutText(block);
}

// ---- Reading ----

class CEventTape::CReader {
public:
    explicit CReader(std::string_view bytes) : rest_(bytes) {}

    bool HasMore() const { return !rest_.empty(); }
    template <class T>
    T Get() {
        T value;
        std::memcpy(&value, rest_.data(), sizeof value);
        rest_.remove_prefix(sizeof value);
        return value;
    }
    uint64_t Number() {
        uint64_t number = 0;
        for (unsigned shift = 0;; shift += 7) {
            const auto byte = Get<uint8_t>();
            number |= static_cast<uint64_t>(byte & 0x7F) << shift;
            if (byte < 0x80) return number;
        }
    }
    int32_t Index() { return static_cast<int32_t>(Number()); }
    std::string_view Text() {
        const size_t size = Number();
        const std::string_view text = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return text;
    }
    LoggedWord Word() {
        const auto head = Get<WordHead>();
        LoggedWord word{head.kind};
        word.fate = head.fate;
        word.axis = head.axis;
        word.at_start = head.at_start;
        word.absolute = head.absolute;
        word.resets = head.resets;
        word.motion = head.motion;
        word.text = Text();
        return word;
    }

private:
    std::string_view rest_;
};

void CEventTape::Replay(CRunLog& log) const {
    CReader reader(bytes_);
    while (reader.HasMore()) {
        switch (reader.Get<Kind>()) {
            case Kind::kSegmentStarts: log.SegmentStarts(); break;
            case Kind::kRecordStarts: {
                const int32_t program = reader.Index();
                log.RecordStarts(program, reader.Index());
                break;
            }
            case Kind::kRecordEnds: log.RecordEnds(reader.Get<bool>()); break;
            case Kind::kRecordDropped: log.RecordDropped(reader.Get<DropReason>()); break;
            case Kind::kArcAsLines: log.ArcAsLines(reader.Get<bool>()); break;
            case Kind::kCallStarts: {
                const auto* const record = reader.Get<const CNCIncludeData*>();
                log.CallStarts(*record, reader.Get<int32_t>());
                break;
            }
            case Kind::kCallEnds: log.CallEnds(); break;
            case Kind::kExpansionStarts: log.ExpansionStarts(*reader.Get<const CNCIncludeData*>()); break;
            case Kind::kExpansionEnds: log.ExpansionEnds(); break;
            case Kind::kTemplateStarts: {
                const auto* const compiled = reader.Get<const CompiledTemplate*>();
                log.TemplateStarts(*compiled, reader.Get<int32_t>());
                break;
            }
            case Kind::kTemplateEnds: log.TemplateEnds(); break;
            case Kind::kTemplateLine: {
                const size_t line = reader.Number();
                log.TemplateLine(line, reader.Text());
                break;
            }
            case Kind::kWord: log.Word(reader.Word()); break;
            case Kind::kUnresolved: log.Unresolved(reader.Text()); break;
            case Kind::kBlockWritten: {
                const std::string_view block = reader.Text();
                log.BlockWritten(block, reader.Number());
                break;
            }
            case Kind::kCommentWritten: log.CommentWritten(reader.Text()); break;
        }
    }
}

}  // namespace brindle
