#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "check/tuning/run_time_words.h"
#include "editor/run_time_data/nc_run_time_dlg.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/tuning_argument.h"
#include "host/console/date_text.h"
#include "host/console/messages.h"
#include "host/console/text_table.h"
#include "host/edit/find_toolkit.h"
#include "host/load/loaded_tuning.h"
#include "host/load/tuning_report.h"
#include "platform/text_encoding.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

struct DataArguments {
    TuningArgument input;
    std::string definition, dataset, tuning_pick;
    bool edit = false;
};

void PrintItems(const char* title, const std::vector<CRunTimeDefItem>& items) {
    if (items.empty()) return;
    std::cout << title << "\n";
    CTextTable table("  ");
    for (size_t i = 0; i < items.size(); ++i) {
        table.AddRow({std::to_string(i + 1), items[i].name, items[i].hidden ? "hidden" : ""});
    }
    std::cout << table.Text() << "\n";
}

std::string NameAt(const std::vector<CRunTimeDefItem>& items, std::string_view number) {
    return items[static_cast<size_t>(LeadingInt(number)) - 1].name;
}

// What the value of a word is for: the message, or row and column.
std::string PurposeOf(const CRunTimeDataDef& definition, const std::string& word) {
    CDiagnostics faults;
    if (!CheckRunTimeWord(word, definition, {}, faults)) return "(not defined)";
    const std::vector<std::string_view> numbers = PartsOfRunTimeWord(word);
    if (numbers.size() == 1) return NameAt(definition.messages(), numbers[0]);
    return NameAt(definition.rows(), numbers[0]) + ", " + NameAt(definition.columns(), numbers[1]);
}

const char* KindText(TextKind kind) {
    switch (kind) {
        case TextKind::kPlain: return "";
        case TextKind::kRealExpression: return "number expression";
        case TextKind::kTextExpression: return "text expression";
    }
    return "";
}

void PrintDataset(const CRunTimeDataDef& definition, const CDataSetItem& dataset) {
    std::cout << "Dataset " << PrintableText(dataset.name) << "\n";
    CTextTable table("  ");
    for (const auto& [word, item] : dataset.values.items()) {
        const auto* const text = dynamic_cast<const CTextKVItem*>(item.get());
        if (text == nullptr) continue;
        table.AddRow({word, PurposeOf(definition, word), text->value(), KindText(text->kind()),
                      definition.IsHidden(word) ? "hidden" : ""});
    }
    std::cout << table.Text() << "\n";
}

void PrintDefinition(const CRunTimeDataDef& definition, const std::string& dataset) {
    if (definition.last_update() != 0) {
        const DateText changed = LocalDateText(definition.last_update());
        std::cout << "Last change  " << changed.date << " " << changed.time << "\n\n";
    }
    PrintItems("Rows", definition.rows());
    PrintItems("Columns", definition.columns());
    PrintItems("Messages", definition.messages());
    const CDataSetContainer& datasets = definition.datasets();
    for (size_t i = 0; i < datasets.size(); ++i) {
        const std::string name = datasets.NameAt(i);
        if (dataset.empty() || dataset == name) PrintDataset(definition, *datasets.Find(name));
    }
}

// What the user confirms is stored as the values last used, where a later job finds them.
int EditData(const LoadedTuning& tuning, const std::string& dataset, const std::string& tuning_pick) {
    if (dataset.empty()) {
        PrintError({tuning.definition_name}, "defines no dataset: there are no values to edit");
        return kBadInput;
    }
    CToolkit* const toolkit = FindToolkit();
    if (toolkit == nullptr) return kBadInput;
    CSession session;
    SetTuning(session, tuning);
    const std::string chosen =
        DisplayRunTimeData(*toolkit, session.tuning.definition(), AsUtf8(tuning_pick), dataset, session.run_values);
    if (chosen.empty()) {
        PrintNote({tuning.definition_name}, "editing was cancelled: values and dataset stay as they were");
    } else {
        std::cout << PrintableText(chosen) << '\n';
    }
    return kGood;
}

int RunData(DataArguments& arguments) {
    SettleTuning(arguments.input);
    LoadedTuning tuning;
    std::string chosen;
    if (!LoadTuning(arguments.input.tuning, arguments.definition, tuning) || !ReportOnTuning(tuning)) return kBadInput;
    if (!ChooseDataset(tuning, arguments.dataset, chosen)) return kBadInput;
    if (arguments.edit) return EditData(tuning, chosen, arguments.tuning_pick);
    if (IsEmpty(tuning.definition())) {
        PrintNote({tuning.definition_name}, "defines no run-time data");
    }
    PrintDefinition(tuning.definition(), arguments.dataset.empty() ? std::string() : chosen);
    return kGood;
}

}  // namespace

void AddDataCommand(CLI::App& app, int& status) {
    const auto arguments = std::make_shared<DataArguments>();
    CLI::App& command =
        AddCommand(app, "data", "Prints the run-time data of a tuning, or edits its values",
                   {.usage = "TUNING", .example = "brindle data laser.tun --dataset Plywood", .status = kUsualStatus});
    AddTuning(command, arguments->input);
    command.add_option("--rtd", arguments->definition, "Definition file, in place of the tuning's own definition")
        ->type_name("FILE");
    command.add_option("--dataset", arguments->dataset, "Print this dataset alone, or edit it first")
        ->type_name("NAME");
    CLI::Option& edit = *command.add_flag("--edit", arguments->edit,
                                          "Let the user edit the values of the next jobs in a dialog, and print the "
                                          "chosen dataset");
    command
        .add_option("--tune-pick", arguments->tuning_pick,
                    "Name of the tuning in a host's menu; the values last used are stored under it; with --edit only")
        ->type_name("TEXT")
        ->needs(&edit);
    command.callback([arguments, &status] { status = RunData(*arguments); });
}

}  // namespace brindle::host
