#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "check/tuning/nearest_name.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/console/wrapped_text.h"
#include "host/reference/key_reference.h"

namespace brindle::host {
namespace {

struct KeysOptions {
    std::vector<std::string> words;
    bool markdown = false;
};

int PrintKeys(const KeysOptions& options) {
    if (options.markdown) {
        std::cout << KeyPage();
        return kGood;
    }
    std::string pattern;
    for (const std::string& word : options.words) pattern.append(pattern.empty() ? "" : " ").append(word);
    std::string text = KeyEntry(pattern, ScreenWidth());
    if (text.empty()) text = KeyList(pattern, ScreenWidth());
    if (text.empty()) {
        PrintError(
            {}, "no key is or holds " + Quoted(pattern) + ", nor does its meaning" + Suggestion(IntendedKey(pattern)));
        return kBadInput;
    }
    std::cout << text;
    return kGood;
}

}  // namespace

void AddKeysCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<KeysOptions>();
    CLI::App& command =
        AddCommand(app, "keys", "Explains the keys that a tuning can hold",
                   {.usage = "[WORD...]",
                    .notes = "default  what a run uses for a key that is missing, - if it needs none\n"
                             "editor   what the tuning editor stores for it\n"
                             "scope    how the key is written: alone; per tool: after T1_, T2_ and so on, or\n"
                             "         T_ for the default tool; per event: after the event, as in Line_tTmpl,\n"
                             "         or after tool and event, as in T1_ToolOn_tTmpl",
                    .example = "brindle keys block number\nbrindle keys T3_Speed_P1_sV1",
                    .status = "0 if all went well, 1 if no key is found, 2 for wrong usage."});
    CLI::Option* const words =
        command
            .add_option("WORD", options->words,
                        "A whole key such as T3_Speed_P1_sV1, which is printed with a line to copy; a heading of the "
                        "list; or words that names and meanings hold. Without any all keys are listed")
            ->type_name("WORD");
    command.add_flag("--markdown", options->markdown, "The whole reference as a page in Markdown")->excludes(words);
    command.callback([options, &status] { status = PrintKeys(*options); });
}

}  // namespace brindle::host
