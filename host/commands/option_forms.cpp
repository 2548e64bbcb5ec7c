#include "host/commands/option_forms.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle::host {

void SetForm(CLI::Option& option, const char* form, bool (*is_good)(const std::string&)) {
    option.type_name(form);
    option.check([form, is_good](const std::string& text) {
        return is_good(text) ? std::string() : Quoted(text) + " is not of the form " + form;
    });
}

void SetChoices(CLI::Option& option, std::initializer_list<const char*> words) {
    std::string form, list;
    for (const char* const word : words) {
        form.append(form.empty() ? "" : "|").append(word);
        list.append(list.empty() ? "" : ", ").append(word);
    }
    option.type_name(form);
    option.check([choices = std::vector<std::string>(words.begin(), words.end()), list](const std::string& text) {
        const bool is_good = std::find(choices.begin(), choices.end(), text) != choices.end();
        return is_good ? std::string() : Quoted(text) + " is none of " + list;
    });
}

void SetWholeNumber(CLI::Option& option, int least, int most) {
    option.type_name("NUMBER");
    option.check([least, most](const std::string& text) {
        const std::optional<double> number = ParseNumber(text);
        const bool is_good = number && *number == std::floor(*number) && *number >= least && *number <= most &&
                             text.find_first_of(".eE") == text.npos;
        return is_good
                   ? std::string()
                   : Quoted(text) + " is no whole number from " + std::to_string(least) + " to " + std::to_string(most);
    });
}

void SetSize(CLI::Option& option) {
    option.type_name("NUMBER");
    option.check([](const std::string& text) {
        const std::optional<double> number = ParseNumber(text);
        return number && *number >= 0.0 ? std::string() : Quoted(text) + " is no number of at least 0";
    });
}

}  // namespace brindle::host
