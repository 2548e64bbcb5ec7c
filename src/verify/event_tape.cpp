#include "verify/event_tape.h"

#include "geometry/nc_data.h"

namespace brindle {

void CEventTape::Add(Event event, std::string_view text) {
    event.first = texts_.size();
    event.length = text.size();
    event.word.text = {};
    texts_ += text;
    events_.push_back(event);
}

void CEventTape::Replay(CRunLog& log) const {
    for (const Event& event : events_) {
        const std::string_view text = std::string_view(texts_).substr(event.first, event.length);
        switch (event.kind) {
            case Kind::kSegmentStarts: log.SegmentStarts(); break;
            case Kind::kRecordStarts: log.RecordStarts(event.number, event.index); break;
            case Kind::kRecordEnds: log.RecordEnds(event.flag); break;
            case Kind::kRecordDropped: log.RecordDropped(static_cast<DropReason>(event.number)); break;
            case Kind::kArcAsLines: log.ArcAsLines(event.flag); break;
            case Kind::kCallStarts:
                log.CallStarts(*static_cast<const CNCIncludeData*>(event.object), event.number);
                break;
            case Kind::kCallEnds: log.CallEnds(); break;
            case Kind::kExpansionStarts: log.ExpansionStarts(*static_cast<const CNCIncludeData*>(event.object)); break;
            case Kind::kExpansionEnds: log.ExpansionEnds(); break;
            case Kind::kTemplateStarts:
                log.TemplateStarts(*static_cast<const CompiledTemplate*>(event.object), event.number);
                break;
            case Kind::kTemplateEnds: log.TemplateEnds(); break;
            case Kind::kTemplateLine: log.TemplateLine(static_cast<size_t>(event.number), text); break;
            case Kind::kWord: {
                LoggedWord word = event.word;
                word.text = text;
                log.Word(word);
                break;
            }
            case Kind::kUnresolved: log.Unresolved(text); break;
            case Kind::kCommentWritten: log.CommentWritten(text); break;
            case Kind::kBlockWritten: log.BlockWritten(text, event.trace_index); break;
        }
    }
}

}  // namespace brindle
