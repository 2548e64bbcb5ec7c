// Lists.
#pragma once

#include <QComboBox>
#include <QListView>

#include "entry_model.h"
#include "qt_control.h"

namespace brindle {

// What drop-down list and list box have in common.
template <typename Widget>
class CQtListBase : public CQtControl<CListControl, Widget> {
public:
    void SetText(std::string_view /*text*/) override {}
    std::string GetText() const override { return GetEntryText(this->GetSelected()); }
    void Empty() override { this->SetEntries(0, {}); }
    void SetValue(int index, int32_t value) override { model_.SetValue(index, value); }
    int32_t GetValue(int index) const override { return model_.GetValue(index); }
    int GetCount() const override { return model_.Count(); }
    std::string GetEntryText(int index) const override { return FromQt(model_.Text(index)); }

protected:
    CQtListBase(CFormBody& body, const ControlSpec& spec, Widget* widget)
        : CQtControl<CListControl, Widget>(body, spec, widget), model_(*new CEntryModel(widget)) {}
    CEntryModel& model() const { return model_; }

private:
    CEntryModel& model_;  // the widget's
};

class CQtDropDown : public CQtListBase<QComboBox> {
public:
    CQtDropDown(CFormBody& body, const ControlSpec& spec);
    int AddEntry(std::string_view text) override;
    void SetEntries(int count, std::function<std::string(int)> text_of) override;
    void Select(int index) override;
    int GetSelected() const override { return widget().currentIndex(); }
};

class CQtListBox : public CQtListBase<QListView> {
public:
    CQtListBox(CFormBody& body, const ControlSpec& spec);
    int AddEntry(std::string_view text) override { return model().Add(text); }
    void SetEntries(int count, std::function<std::string(int)> text_of) override;
    void Select(int index) override;
    int GetSelected() const override;
};

}  // namespace brindle
