#include "host/commands/command_help.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "host/console/wrapped_text.h"
#include "text/words.h"

namespace brindle::host {
namespace {

constexpr size_t kNarrowest = 50, kWidest = 100, kUsualWidth = 80;
// Of the left column, with its indent.
constexpr size_t kOptionWidth = 28, kCommandWidth = 14;

size_t HelpWidth() {
    const size_t width = ScreenWidth();
    return width == 0 ? kUsualWidth : std::clamp(width, kNarrowest, kWidest);
}

// What an option takes. The parser puts what its checks say of themselves after a colon: the words to choose from, as
// {a,b}, which are shown in place of the form, or its own names of types and ranges, which are not.
std::string FormOf(const CLI::Option& option) {
    if (option.get_type_size() == 0) return {};
    const std::string form = option.get_type_name();
    const size_t colon = form.find(':');
    if (colon == form.npos) return form;
    if (form[colon + 1] != '{' || form.back() != '}') return form.substr(0, colon);
    return ReplaceAll(form.substr(colon + 2, form.size() - colon - 3), ",", "|");
}

std::string LabelOf(const CLI::Option& option) {
    if (option.get_positional()) {
        const bool takes_many = option.get_expected_max() >= CLI::detail::expected_max_vector_size;
        return option.get_name(true, false) + (takes_many ? "..." : "");
    }
    std::string label = ReplaceAll(option.get_name(false, true), ",", ", ");
    if (option.get_snames().empty()) label.insert(0, "    ");
    // The value that a flag has of itself is no value to type.
    if (const size_t own_value = label.find('{'); own_value != std::string::npos) return label.substr(0, own_value);
    const std::string form = FormOf(option);
    return form.empty() ? label : label + " " + form;
}

void AddRow(const std::string& label, size_t label_width, const std::string& description, std::string& text) {
    std::string line = "  " + label;
    if (line.size() + 2 > label_width) {
        text.append(line).push_back('\n');
        line.clear();
    }
    for (const std::string& words : WrappedLines(description, HelpWidth() - label_width)) {
        line.resize(label_width, ' ');
        text.append(line).append(words).push_back('\n');
        line.clear();
    }
}

void AddOptions(const std::string& heading, const std::vector<const CLI::Option*>& options, std::string& text) {
    if (options.empty()) return;
    text.append("\n").append(heading).append(":\n");
    for (const CLI::Option* const option : options)
        AddRow(LabelOf(*option), kOptionWidth, option->get_description(), text);
}

void AddCommands(const CLI::App& app, std::string& text) {
    const std::vector<const CLI::App*> commands = app.get_subcommands([](const CLI::App*) { return true; });
    if (commands.empty()) return;
    text.append("\nCommands:\n");
    for (const CLI::App* const command : commands)
        AddRow(command->get_name(), kCommandWidth, command->get_description(), text);
}

void AddEnd(const CommandHelp& help, std::string& text) {
    if (!help.notes.empty()) text.append("\n").append(help.notes).append("\n");
    text.append("\nExample:\n  ").append(ReplaceAll(help.example, "\n", "\n  ")).append("\n\n");
    for (const std::string& line : WrappedLines(std::string("Exit status: ") + help.status, HelpWidth())) {
        text.append(line).push_back('\n');
    }
}

class CHelpFormatter : public CLI::FormatterBase {
public:
    explicit CHelpFormatter(CommandHelp help) : help_(std::move(help)) {}

    std::string make_help(const CLI::App* app, std::string /*name*/, CLI::AppFormatMode /*mode*/) const override {
        std::string text = app->get_description() + ".\n\n" + Usage(*app) + "\n";
        AddOptions("Arguments", OptionsOf(*app, [](const CLI::Option* option) { return option->get_positional(); }),
                   text);
        for (const std::string& group : app->get_groups()) {
            if (group.empty()) continue;
            AddOptions(group,
                       OptionsOf(*app,
                                 [&group](const CLI::Option* option) {
                                     return option->nonpositional() && option->get_group() == group;
                                 }),
                       text);
        }
        AddCommands(*app, text);
        AddEnd(help_, text);
        return text;
    }

    std::string Usage(const CLI::App& app) const {
        std::string line = "Usage: ";
        if (app.get_parent() == nullptr) return line + app.get_name() + " " + help_.usage;
        line.append(app.get_parent()->get_name()).append(" ").append(app.get_name()).append(" [OPTIONS]");
        return *help_.usage == '\0' ? line : line + " " + help_.usage;
    }

private:
    template <typename Filter>
    static std::vector<const CLI::Option*> OptionsOf(const CLI::App& app, Filter filter) {
        return app.get_options([&filter](const CLI::Option* option) { return filter(option); });
    }

    CommandHelp help_;
};

}  // namespace

CLI::App& AddCommand(CLI::App& app, const char* name, const char* does, CommandHelp help) {
    CLI::App& command = *app.add_subcommand(name, does);
    SetHelp(command, std::move(help));
    return command;
}

void SetHelp(CLI::App& app, CommandHelp help) { app.formatter(std::make_shared<CHelpFormatter>(std::move(help))); }

std::string UsageLine(const CLI::App& command) {
    const auto* const formatter = dynamic_cast<const CHelpFormatter*>(command.get_formatter().get());
    return formatter == nullptr ? std::string() : formatter->Usage(command);
}

}  // namespace brindle::host
