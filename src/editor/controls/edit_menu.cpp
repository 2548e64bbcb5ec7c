#include "editor/controls/edit_menu.h"

namespace brindle {

void RunEditMenu(CToolkit& toolkit, CEditControl& edit, std::vector<EditCommand> commands) {
    const EditCommand separator{{}, true, [] {}};
    commands.push_back(separator);
    commands.push_back({"Undo", true, [&edit] { edit.Undo(); }});
    commands.push_back(separator);
    commands.push_back({"Cut", true, [&edit] { edit.Cut(); }});
    commands.push_back({"Copy", true, [&edit] { edit.Copy(); }});
    commands.push_back({"Paste", true, [&edit] { edit.Paste(); }});
    commands.push_back(separator);
    commands.push_back({"Select All", true, [&edit] { edit.SelectAll(); }});

    std::vector<MenuEntry> entries;
    entries.reserve(commands.size());
    for (const EditCommand& command : commands) entries.push_back({command.text, command.enabled});
    const int chosen = toolkit.ChooseFromMenu(entries);
    if (chosen >= 0 && static_cast<size_t>(chosen) < commands.size()) commands[static_cast<size_t>(chosen)].run();
}

}  // namespace brindle
