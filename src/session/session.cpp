#include "session/session.h"

#include "cff2/cff2_reader.h"
#include "generator/output_run.h"
#include "platform/text_file.h"

namespace brindle {

bool CSession::OpenDrawing(const std::string& path) {
    const std::optional<std::string> text = ReadWholeFile(path);
    if (text) TakeDrawing(*text);
    return text.has_value();
}

void CSession::TakeDrawing(std::string_view text) { ReadCF2(text, geometry, controller.job); }

std::vector<size_t> JobResult::Messages() const {
    std::vector<size_t> messages;
    for (size_t i = 0; i < trace.GetCount(); ++i) {
        if (trace.Get(i).kind == TraceKind::kMessage) messages.push_back(i);
    }
    return messages;
}

JobResult RunJob(CSession& session, CRunLog* log) {
    RunOutput(session.Parts(), log);
    return {session.buffers, session.trace};
}

}  // namespace brindle
