#include "host/post/run_data.h"

#include <algorithm>
#include <set>

#include "host/console/messages.h"
#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

bool IsPlainNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

struct Expression {
    std::string text;
    std::string word;  // the first word that needs it
    bool is_text = false;
};

bool IsSet(const RunDataRequest& request, const std::string& word) {
    return std::any_of(request.settings.begin(), request.settings.end(),
                       [&word](const RunDataSetting& setting) { return setting.word == word; });
}

// The expressions of the request's dataset whose value the run needs, each once.
std::vector<Expression> FindExpressions(const LoadedTuning& tuning, const RunDataRequest& request) {
    std::vector<Expression> expressions;
    std::set<std::string> seen;
    const CDataSetItem* const dataset = tuning.definition().datasets().Find(request.dataset);
    if (dataset == nullptr) return expressions;
    for (const auto& [word, item] : dataset->values.items()) {
        const auto* const text = dynamic_cast<const CTextKVItem*>(item.get());
        if (text == nullptr || text->kind() == TextKind::kPlain || text->value().empty()) continue;
        if (IsSet(request, word) || !seen.insert(text->value()).second) continue;
        expressions.push_back({text->value(), word, text->kind() == TextKind::kTextExpression});
    }
    return expressions;
}

// The value that the user gave for `expression`, which may hold a `=` itself.
std::optional<std::string> GivenValue(const std::vector<std::string>& given, const std::string& expression) {
    for (const std::string& text : given) {
        if (text.starts_with(expression + "=")) return text.substr(expression.size() + 1);
    }
    return std::nullopt;
}

// What the user gave that is a name and a number: expressions may use it.
NamedNumbers NumbersOf(const std::vector<std::string>& given) {
    NamedNumbers numbers;
    for (const std::string& text : given) {
        const size_t equals = text.find('=');
        const std::string name = text.substr(0, equals);
        const std::optional<double> value = ParseNumber(std::string_view(text).substr(equals + 1));
        if (value && IsExpressionName(name)) numbers.insert_or_assign(name, *value);
    }
    return numbers;
}

class CSettler {
public:
    CSettler(const LoadedTuning& tuning, const RunDataRequest& request, const JobValues& job)
        : tuning_(tuning), request_(request), job_(job), numbers_(NumbersOf(request.given)) {}

    // The value, or nothing with a message printed.
    std::optional<std::string> Settle(const Expression& expression) const {
        if (std::optional<std::string> given = GivenValue(request_.given, expression.text)) return given;
        if (expression.is_text) {
            if (ParseNumber(expression.text)) return expression.text;
            return Complain(expression, "the text is not known here");
        }
        const Computed computed = ComputeExpression(expression.text, job_, numbers_);
        if (computed.good) return ShortNumber(computed.value);
        return Complain(expression, computed.reason);
    }

private:
    std::optional<std::string> Complain(const Expression& expression, const std::string& reason) const {
        PrintError({tuning_.definition_name}, "expression " + Quoted(expression.text) + " of " + expression.word +
                                                  " has no value: " + reason + ". Give it with --expr '" +
                                                  expression.text + (expression.is_text ? "=TEXT'" : "=NUMBER'") +
                                                  " or set the word with --set '" + expression.word + "=VALUE'");
        return std::nullopt;
    }

    const LoadedTuning& tuning_;
    const RunDataRequest& request_;
    const JobValues& job_;
    NamedNumbers numbers_;
};

}  // namespace

std::optional<RunDataSetting> ParseSetting(std::string_view text) {
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    std::string word = UpperCase(text.substr(0, equals));
    std::erase(word, ' ');
    const std::vector<std::string_view> numbers = PartsOfRunTimeWord(word);
    if (numbers.empty() || !std::all_of(numbers.begin(), numbers.end(), IsPlainNumber)) return std::nullopt;
    return RunDataSetting{std::move(word), std::string(text.substr(equals + 1))};
}

bool SettleExpressions(const LoadedTuning& tuning, const RunDataRequest& request, const JobValues& job,
                       ExpressionValues& values) {
    const CSettler settler(tuning, request, job);
    bool good = true;
    for (const Expression& expression : FindExpressions(tuning, request)) {
        std::optional<std::string> value = settler.Settle(expression);
        good &= value.has_value();
        if (value) values.insert_or_assign(expression.text, std::move(*value));
    }
    return good;
}

void ApplySettings(const RunDataRequest& request, CDataSetContainer& datasets) {
    if (request.settings.empty()) return;
    datasets.Add(request.dataset);
    CKVItemContainer& values = *datasets.ValuesOf(request.dataset);
    for (const RunDataSetting& setting : request.settings) {
        values.SetText(setting.word, setting.value, TextKind::kTextExpression);
    }
}

}  // namespace brindle::host
