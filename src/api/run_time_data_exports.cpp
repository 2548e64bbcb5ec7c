// Exports of the run-time data exchange.
#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

int GBrn_ReadRTDDefFromFile(const wchar_t* path) {
    return Export([&] { Session().tuning.definition().ReadFromFile(In(path), CRunTimeDataDef::ReadMode::kCollect); });
}

int GBrn_GetNextRTDExpr(wchar_t** expression, int* is_text) {
    return Export([&] {
        CKVItemContainer& pending = Session().tuning.definition().pending_expressions();
        if (pending.items().size() == 0) {
            Out(expression, "");
            return;
        }
        const auto first = pending.items().begin();
        const std::string text = first->first;
        const bool is_real = dynamic_cast<const CRealKVItem*>(first->second.get()) != nullptr;
        if (!Out(expression, text)) return;
        pending.Remove(text);
        Out(is_text, is_real ? 0 : 1);
    });
}

int GBrn_SetRTDExprValue(const wchar_t* expression, const wchar_t* value) {
    return Export([&] {
        Session().tuning.definition().expression_values().SetText(In(expression), In(value), TextKind::kPlain);
    });
}

int GBrn_UpdateDefaultValuesForExpressions(const wchar_t* path) {
    return Export([&] {
        CBrindleMgr& session = Session();
        session.definition_tuning_name = In(path);
        session.tuning.definition().ReadFromFile(session.definition_tuning_name, CRunTimeDataDef::ReadMode::kResolve);
    });
}

int GBrn_GetNameTuneFileForRTDDef(wchar_t** path) {
    return Export([&] { Out(path, Session().definition_tuning_name); });
}

int GBrn_ClearRunTimeData(void) {
    return Export([&] {
        CBrindleMgr& session = Session();
        session.run_values.Clear();
        session.definition_tuning_name.clear();
    });
}
