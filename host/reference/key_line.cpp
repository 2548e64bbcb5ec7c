#include "host/reference/key_line.h"

#include "tuning/kv_container.h"

namespace brindle::host {

std::string LineOfDefault(const std::string& key, KeyKind kind, const KeyDefault& value) {
    CKVItemContainer scratch;
    switch (kind) {
        case KeyKind::kBool: scratch.SetBool(key, value.Bool() ? 1 : 0); break;
        case KeyKind::kInt: scratch.SetInt(key, value.Int()); break;
        case KeyKind::kReal: scratch.SetReal(key, value.Real()); break;
        case KeyKind::kText: scratch.SetText(key, std::string(value.Text()), TextKind::kPlain); break;
        case KeyKind::kTemplate: break;
    }
    return scratch.FormatItem(key, scratch.items().Find(key));
}

}  // namespace brindle::host
