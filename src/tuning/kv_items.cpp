#include "tuning/kv_items.h"

#include "text/numbers.h"

namespace brindle {

std::string CBoolKVItem::GetValueText() const { return value_ != 0 ? "true" : "false"; }

std::unique_ptr<CKVItem> CBoolKVItem::Clone() const { return std::make_unique<CBoolKVItem>(*this); }

std::string CIntKVItem::GetValueText() const { return std::to_string(value_); }

std::unique_ptr<CKVItem> CIntKVItem::Clone() const { return std::make_unique<CIntKVItem>(*this); }

std::string CRealKVItem::GetValueText() const { return FixedText(value_, 6); }

std::unique_ptr<CKVItem> CRealKVItem::Clone() const { return std::make_unique<CRealKVItem>(*this); }

std::string CTextKVItem::GetValueText() const { return value_; }

std::unique_ptr<CKVItem> CTextKVItem::Clone() const { return std::make_unique<CTextKVItem>(*this); }

std::string CMultiLineKVItem::GetValueText() const {
    std::string text;
    for (const CTemplateLine& line : lines_) text += line.text;
    return text;
}

std::unique_ptr<CKVItem> CMultiLineKVItem::Clone() const { return std::make_unique<CMultiLineKVItem>(*this); }

}  // namespace brindle
