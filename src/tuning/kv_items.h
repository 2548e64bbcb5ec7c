// The five kinds of typed items of which a tuning is made.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tuning/template_lines.h"

namespace brindle {

// Where the value of a text item comes from.
enum class TextKind : uint16_t {
    kPlain = 0,           // TEXT
    kRealExpression = 1,  // R_EXPR: the host computes a number
    kTextExpression = 2,  // T_EXPR: the host computes a text, or has computed a number
};

// One typed value.
class CKVItem {
public:
    virtual ~CKVItem() = default;
    // The value as display text.
    virtual std::string GetValueText() const = 0;
    virtual std::unique_ptr<CKVItem> Clone() const = 0;
};

class CBoolKVItem : public CKVItem {
public:
    explicit CBoolKVItem(int32_t value) : value_(value) {}
    std::string GetValueText() const override;  // "true" or "false"
    std::unique_ptr<CKVItem> Clone() const override;
    int32_t value() const { return value_; }  // 0 is false

private:
    int32_t value_;
};

class CIntKVItem : public CKVItem {
public:
    explicit CIntKVItem(int32_t value) : value_(value) {}
    std::string GetValueText() const override;
    std::unique_ptr<CKVItem> Clone() const override;
    int32_t value() const { return value_; }

private:
    int32_t value_;
};

class CRealKVItem : public CKVItem {
public:
    explicit CRealKVItem(double value) : value_(value) {}
    std::string GetValueText() const override;  // six decimals; a line of the tuning has nine
    std::unique_ptr<CKVItem> Clone() const override;
    double value() const { return value_; }

private:
    double value_;
};

class CTextKVItem : public CKVItem {
public:
    CTextKVItem(std::string value, TextKind kind) : value_(std::move(value)), kind_(kind) {}
    std::string GetValueText() const override;
    std::unique_ptr<CKVItem> Clone() const override;
    const std::string& value() const { return value_; }
    TextKind kind() const { return kind_; }

private:
    std::string value_;
    TextKind kind_;
};

class CMultiLineKVItem : public CKVItem {
public:
    explicit CMultiLineKVItem(TemplateLines lines) : lines_(std::move(lines)) {}
    std::string GetValueText() const override;  // the texts of all lines with nothing between them
    std::unique_ptr<CKVItem> Clone() const override;
    const TemplateLines& lines() const { return lines_; }

private:
    TemplateLines lines_;
};

}  // namespace brindle
