#include "host/post/given_values.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/tuning/checks.h"
#include "host/console/messages.h"
#include "host/post/expressions.h"
#include "language/template_text.h"
#include "text/numbers.h"
#include "text/words.h"

namespace brindle::host {
namespace {

// ---- Words of the tuning ----

bool TextHasWord(std::string_view text, std::string_view word) {
    const std::vector<TemplatePiece> pieces = CutTemplateText(text);
    return std::any_of(pieces.begin(), pieces.end(), [word](const TemplatePiece& piece) {
        return piece.kind == TemplatePiece::Kind::kRunValue && piece.text == word;
    });
}

bool ItemHasWord(const CKVItem& item, std::string_view word) {
    if (const auto* const text = dynamic_cast<const CTextKVItem*>(&item)) return TextHasWord(text->value(), word);
    const auto* const lines = dynamic_cast<const CMultiLineKVItem*>(&item);
    if (lines == nullptr) return false;
    return std::any_of(lines->lines().begin(), lines->lines().end(),
                       [word](const CTemplateLine& line) { return TextHasWord(WithoutComment(line.text), word); });
}

bool AnyTextHasWord(const LoadedTuning& tuning, const std::string& word) {
    const CKVItemMapObj& items = tuning.options.items();
    return std::any_of(items.begin(), items.end(),
                       [&word](const auto& entry) { return ItemHasWord(*entry.second, word); });
}

// A value that a dataset has for a word.
struct DatasetValue {
    std::string dataset, word;
    const CTextKVItem* value;

    bool IsExpression() const { return value->kind() != TextKind::kPlain; }
    bool IsNumberExpression() const { return value->kind() == TextKind::kRealExpression; }
};

std::vector<DatasetValue> ValuesOfDatasets(const CDataSetContainer& datasets) {
    std::vector<DatasetValue> values;
    for (size_t i = 0; i < datasets.size(); ++i) {
        for (const auto& [word, item] : datasets.ValuesAt(i)->items()) {
            const auto* const text = dynamic_cast<const CTextKVItem*>(item.get());
            if (text != nullptr) values.push_back({datasets.NameAt(i), word, text});
        }
    }
    return values;
}

// ---- Numbers ----

// An exponent is a number to us, but to a machine that reads it out of the NC text it is an axis.
bool IsNumber(const std::string& text) {
    return ParseNumber(text).has_value() && text.find_first_of("eE") == std::string::npos;
}

// What is wrong with `text` where a number belongs, as `use` says; empty if nothing is.
std::string FaultOfNumber(const std::string& text, const std::string& use) {
    if (IsNumber(text)) return {};
    std::string meant = ReplaceAll(text, ",", ".");
    if (!IsNumber(meant)) meant.clear();
    return Quoted(text) + " is no number, and " + use + Suggestion(meant);
}

bool HasControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; });
}

// Whether an expression names `name`, and not only a longer name that holds it.
bool UsesName(std::string_view expression, std::string_view name) {
    const auto is_part = [expression](size_t at) {
        return at < expression.size() && IsExpressionName(std::string("_") + expression[at]);
    };
    for (size_t at = expression.find(name); at != expression.npos; at = expression.find(name, at + 1)) {
        if ((at == 0 || !is_part(at - 1)) && !is_part(at + name.size())) return true;
    }
    return false;
}

// ---- Checks ----

class CGivenChecker {
public:
    CGivenChecker(const LoadedTuning& tuning, const RunDataRequest& request)
        : tuning_(tuning), request_(request), values_(ValuesOfDatasets(tuning.definition().datasets())) {}

    bool Check() {
        for (const RunDataSetting& setting : request_.settings) CheckSetting(setting);
        for (const std::string& given : request_.given) CheckExpression(given);
        CheckAsLines();
        return good_;
    }

private:
    // A value that a word gets, and the option that gives it.
    struct WordValue {
        std::string option, word, value;
    };

    void Complain(const std::string& option, const std::string& fault) {
        if (fault.empty()) return;
        PrintError({}, option + ": " + fault);
        good_ = false;
    }

    void CheckSetting(const RunDataSetting& setting) {
        const std::string option = "--set " + Quoted(setting.word + "=" + setting.value);
        const auto is_for_word = [&setting](const DatasetValue& value) { return value.word == setting.word; };
        const bool is_known = std::any_of(values_.begin(), values_.end(), is_for_word);
        if (!is_known && !AnyTextHasWord(tuning_, setting.word)) {
            return Complain(option, "no template uses this word and no dataset has it");
        }
        TakeValue({option, setting.word, setting.value}, TakesNumbers(setting.word));
    }

    // Whether the run's dataset computes a number there, or a cell of the table is a number in every dataset. Messages
    // are texts, though one may look like a number.
    bool TakesNumbers(const std::string& word) const {
        bool all_are = PartsOfRunTimeWord(word).size() == 2, any = false;
        for (const DatasetValue& value : values_) {
            if (value.word != word) continue;
            if (value.IsNumberExpression() && value.dataset == request_.dataset) return true;
            any = true;
            all_are &= value.IsNumberExpression() || (!value.IsExpression() && IsNumber(value.value->value()));
        }
        return any && all_are;
    }

    void CheckExpression(const std::string& given) {
        const std::string option = "--expr " + Quoted(given);
        const std::string name = given.substr(0, given.find('='));
        bool is_used = false, is_name_used = false;
        for (const DatasetValue& value : values_) {
            if (!value.IsExpression()) continue;
            const std::string& expression = value.value->value();
            const bool is_it = given.starts_with(expression + "=");
            const bool names_it =
                value.IsNumberExpression() && IsExpressionName(name) && !is_it && UsesName(expression, name);
            is_used |= is_it || names_it;
            if (value.dataset != request_.dataset) continue;
            is_name_used |= names_it;
            if (is_it) {
                TakeValue({option, value.word, given.substr(expression.size() + 1)}, value.IsNumberExpression());
            }
        }
        if (!is_used) return Complain(option, "no dataset has this expression, nor one that uses its name");
        const std::string value = given.substr(given.find('=') + 1);
        if (is_name_used) Complain(option, FaultOfNumber(value, "expressions take " + name + " for one"));
    }

    void TakeValue(WordValue given, bool must_be_number) {
        if (HasControlCharacter(given.value)) return Complain(given.option, "the value has a control character");
        const std::string fault =
            must_be_number ? FaultOfNumber(given.value, given.word + " takes numbers") : std::string();
        if (!fault.empty()) return Complain(given.option, fault);
        taken_.push_back(std::move(given));
    }

    // As the values of a dataset in the tuning are checked: each becomes a line after its last one.
    void CheckAsLines() {
        std::vector<std::string> added;
        for (const WordValue& given : taken_) {
            added.push_back("DSD " + EscapeWord(request_.dataset) + " TEXT " + given.word + " " +
                            EscapeWord(given.value));
        }
        std::vector<std::string_view> lines = tuning_.file.lines;
        const size_t own_lines = lines.size();
        lines.insert(lines.end(), added.begin(), added.end());
        CDiagnostics diagnostics;
        CheckSpeeds(CPlacedTuning(lines), diagnostics);
        for (const Diagnostic& diagnostic : diagnostics.Sorted()) {
            if (diagnostic.place.line <= own_lines || diagnostic.severity > Severity::kWarning) continue;
            const std::string& option = taken_[diagnostic.place.line - own_lines - 1].option;
            if (diagnostic.severity == Severity::kWarning) {
                PrintWarning({}, option + ": " + diagnostic.message);
            } else {
                Complain(option, diagnostic.message);
            }
        }
    }

    const LoadedTuning& tuning_;
    const RunDataRequest& request_;
    std::vector<DatasetValue> values_;
    std::vector<WordValue> taken_;
    bool good_ = true;
};

}  // namespace

bool CheckGivenValues(const LoadedTuning& tuning, const RunDataRequest& request) {
    if (request.settings.empty() && request.given.empty()) return true;
    return CGivenChecker(tuning, request).Check();
}

}  // namespace brindle::host
