#include "host/console/text_format.h"

#include <algorithm>

namespace brindle::host {
namespace {

std::string_view KindText(MessageKind kind) {
    switch (kind) {
        case MessageKind::kError: return "error: ";
        case MessageKind::kLoss: return "error: loss: ";
        case MessageKind::kWarning: return "warning: ";
        case MessageKind::kInfo: return "info: ";
        case MessageKind::kNote: return "note: ";
    }
    return {};
}

std::string PlaceText(const MessagePlace& place, bool needs_position) {
    if (place.file.empty()) return "brindle: ";
    std::string text = PrintableText(FileText(place.file));
    if (place.line != 0 || needs_position) {
        text.append(":").append(std::to_string(std::max<size_t>(place.line, 1)));
        text.append(":").append(std::to_string(std::max<size_t>(place.column, 1)));
    }
    return text.append(": ");
}

}  // namespace

std::string FileText(const std::string& file) { return file == "-" ? "standard input" : file; }

std::string TextOf(const Message& message) {
    std::string text = PlaceText(message.place, message.rule.has_value());
    const bool is_plain = message.kind == MessageKind::kError && message.place.file.empty();
    text.append(is_plain ? std::string_view() : KindText(message.kind)).append(message.text);
    if (!message.help.empty()) text.append(" (").append(message.help).append(")");
    if (message.rule) text.append(" [").append(InfoOf(*message.rule).name).append("]");
    text.append("\n").append(message.place.excerpt);
    for (const RelatedMessage& related : message.related) {
        if (related.is_told) continue;
        text.append(PlaceText(related.place, true)).append("note: ").append(related.text).append("\n");
        text.append(related.place.excerpt);
    }
    return text;
}

}  // namespace brindle::host
