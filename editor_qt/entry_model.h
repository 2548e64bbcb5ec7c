// The entries of a list, which its widget shows.
#pragma once

#include <QAbstractListModel>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brindle {

// Entries that are made when they are asked for, and after them entries that were added one by one.
class CEntryModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;
    void Reset(int count, std::function<std::string(int)> text_of);
    int Add(std::string_view text);
    // Of no entry: 0 and empty text.
    void SetValue(int index, int32_t value);
    int32_t GetValue(int index) const;
    QString Text(int index) const;
    bool Has(int index) const { return index >= 0 && index < Count(); }
    int Count() const { return made_ + static_cast<int>(added_.size()); }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : Count(); }
    QVariant data(const QModelIndex& index, int role) const override;

private:
    int made_ = 0;  // entries of text_of_
    std::function<std::string(int)> text_of_;
    std::vector<QString> added_;
    std::unordered_map<int, int32_t> values_;
};

}  // namespace brindle
