#include "host/console/json_format.h"

#include "host/console/json_writer.h"
#include "host/console/text_format.h"
#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

std::string_view SeverityName(MessageKind kind) {
    switch (kind) {
        case MessageKind::kError: return "error";
        case MessageKind::kLoss: return "loss";
        case MessageKind::kWarning: return "warning";
        case MessageKind::kInfo:
        case MessageKind::kNote: break;
    }
    return "info";
}

void WritePlace(const MessagePlace& place, CJsonWriter& json) {
    json.TextOrNull("file", AsUtf8(FileText(place.file)));
    json.NumberOrNull("line", place.line);
    json.NumberOrNull("column", place.column);
    json.NumberOrNull("end_column", place.end_column);
}

void WriteMessage(const Message& message, CJsonWriter& json) {
    json.BeginObject();
    WritePlace(message.place, json);
    json.Text("severity", SeverityName(message.kind));
    json.TextOrNull("rule", message.rule ? InfoOf(*message.rule).name : std::string_view());
    json.Text("message", message.text);
    json.TextOrNull("help", message.help);
    json.Key("related");
    json.BeginArray();
    for (const RelatedMessage& related : message.related) {
        json.BeginObject();
        WritePlace(related.place, json);
        json.Text("message", related.text);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

}  // namespace

std::string JsonOf(std::span<const Message> messages) {
    CJsonWriter json;
    json.BeginArray();
    for (const Message& message : messages) WriteMessage(message, json);
    json.EndArray();
    return json.Take();
}

}  // namespace brindle::host
