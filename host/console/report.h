// What a call has to say, in the form that the user asks for.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "host/console/messages.h"

namespace brindle::host {

enum class ReportFormat : uint8_t {
    kText,   // on standard error, as it comes
    kJson,   // on standard output, when all is done
    kSarif,  // likewise
};

struct ReportOptions {
    ReportFormat format = ReportFormat::kText;
    bool quiet = false;  // neither warnings nor infos nor notes
};

// Takes the messages of a call while it lives. Notes are no findings: they are text on standard error in all formats.
class CReport final : public CMessageSink {
public:
    explicit CReport(const ReportOptions& options) : options_(options) {}

    void Take(Message message) override;
    // How many were told, those that --quiet silences not among them.
    size_t Count(MessageKind kind) const { return counts_[static_cast<size_t>(kind)]; }
    // Writes the document, of a format that is one. To be called once, at the end.
    void Write() const;

private:
    ReportOptions options_;
    std::array<size_t, kMessageKinds> counts_ = {};
    std::vector<Message> kept_;  // for the document
};

}  // namespace brindle::host
