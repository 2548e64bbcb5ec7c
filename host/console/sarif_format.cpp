#include "host/console/sarif_format.h"

#include <cstdio>
#include <filesystem>
#include <map>

#include "host/console/json_writer.h"
#include "host/console/text_format.h"
#include "platform/version.h"

namespace brindle::host {
namespace {

struct Level {
    std::string_view level;     // as SARIF calls it
    std::string_view severity;  // as we do
};

Level LevelOf(MessageKind kind) {
    switch (kind) {
        case MessageKind::kError: return {"error", "error"};
        case MessageKind::kLoss: return {"error", "loss"};
        case MessageKind::kWarning: return {"warning", "warning"};
        case MessageKind::kInfo:
        case MessageKind::kNote: break;
    }
    return {"note", "info"};
}

std::string_view DefaultLevel(Severity severity) {
    switch (severity) {
        case Severity::kError:
        case Severity::kLoss: return "error";
        case Severity::kWarning: return "warning";
        case Severity::kInfo: break;
    }
    return "note";
}

// The rules of the messages, in their own order, with their places in the list.
std::map<Rule, size_t> RulesOf(std::span<const Message> messages) {
    std::map<Rule, size_t> rules;
    for (const Message& message : messages) {
        if (message.rule) rules.emplace(*message.rule, 0);
    }
    size_t index = 0;
    for (auto& [rule, place] : rules) place = index++;
    return rules;
}

void WriteText(std::string_view key, std::string_view text, CJsonWriter& json) {
    json.Key(key);
    json.BeginObject();
    json.Text("text", text);
    json.EndObject();
}

void WriteTool(const std::map<Rule, size_t>& rules, CJsonWriter& json) {
    json.Key("tool");
    json.BeginObject();
    json.Key("driver");
    json.BeginObject();
    json.Text("name", "brindle");
    json.Text("version", std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor));
    json.Key("rules");
    json.BeginArray();
    for (const auto& [rule, index] : rules) {
        json.BeginObject();
        json.Text("id", InfoOf(rule).name);
        WriteText("shortDescription", InfoOf(rule).meaning, json);
        json.Key("defaultConfiguration");
        json.BeginObject();
        json.Text("level", DefaultLevel(InfoOf(rule).severity));
        json.EndObject();
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    json.EndObject();
}

void WriteRegion(const MessagePlace& place, CJsonWriter& json) {
    json.Key("region");
    json.BeginObject();
    json.Number("startLine", place.line);
    if (place.column != 0) {
        json.Number("startColumn", place.column);
        json.Number("endColumn", place.end_column);
    }
    json.EndObject();
}

void WritePhysical(const MessagePlace& place, CJsonWriter& json) {
    json.Key("physicalLocation");
    json.BeginObject();
    json.Key("artifactLocation");
    json.BeginObject();
    json.Text("uri", UriOf(FileText(place.file)));
    json.EndObject();
    if (place.line != 0) WriteRegion(place, json);
    json.EndObject();
}

void WriteRelated(const Message& message, CJsonWriter& json) {
    json.Key("relatedLocations");
    json.BeginArray();
    for (const RelatedMessage& related : message.related) {
        json.BeginObject();
        WritePhysical(related.place, json);
        WriteText("message", related.text, json);
        json.EndObject();
    }
    json.EndArray();
}

void WriteResult(const Message& message, const std::map<Rule, size_t>& rules, CJsonWriter& json) {
    const Level level = LevelOf(message.kind);
    json.BeginObject();
    if (message.rule) {
        json.Text("ruleId", InfoOf(*message.rule).name);
        json.Number("ruleIndex", rules.at(*message.rule));
    }
    json.Text("level", level.level);
    WriteText("message", message.help.empty() ? message.text : message.text + " (" + message.help + ")", json);
    json.Key("locations");
    json.BeginArray();
    if (!message.place.file.empty()) {
        json.BeginObject();
        WritePhysical(message.place, json);
        json.EndObject();
    }
    json.EndArray();
    if (!message.related.empty()) WriteRelated(message, json);
    json.Key("properties");
    json.BeginObject();
    json.Text("severity", level.severity);
    json.EndObject();
    json.EndObject();
}

bool IsPlainInUri(char c) {
    constexpr std::string_view kOthers = "-._~/";
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           kOthers.find(c) != std::string_view::npos;
}

std::string PathBelowHere(std::string_view path) {
    std::error_code error;
    const std::string here = std::filesystem::current_path(error).string() + "/";
    return std::string(path.starts_with(here) ? path.substr(here.size()) : path);
}

}  // namespace

std::string UriOf(std::string_view path) {
    const std::string shown = PathBelowHere(path);
    std::string uri = shown.starts_with('/') ? "file://" : "";
    for (const char c : shown) {
        if (IsPlainInUri(c)) {
            uri += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
        uri += code;
    }
    return uri;
}

std::string SarifOf(std::span<const Message> messages) {
    const std::map<Rule, size_t> rules = RulesOf(messages);
    CJsonWriter json;
    json.BeginObject();
    json.Text("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
    json.Text("version", "2.1.0");
    json.Key("runs");
    json.BeginArray();
    json.BeginObject();
    WriteTool(rules, json);
    json.Text("columnKind", "unicodeCodePoints");
    json.Key("results");
    json.BeginArray();
    for (const Message& message : messages) WriteResult(message, rules, json);
    json.EndArray();
    json.EndObject();
    json.EndArray();
    json.EndObject();
    return json.Take();
}

}  // namespace brindle::host
