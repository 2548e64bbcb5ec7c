#include "entry_model.h"

#include "qt_text.h"

namespace brindle {

void CEntryModel::Reset(int count, std::function<std::string(int)> text_of) {
    beginResetModel();
    made_ = std::max(count, 0);
    text_of_ = std::move(text_of);
    added_.clear();
    values_.clear();
    endResetModel();
}

int CEntryModel::Add(std::string_view text) {
    const int index = Count();
    beginInsertRows({}, index, index);
    added_.push_back(ToQt(text));
    endInsertRows();
    return index;
}

void CEntryModel::SetValue(int index, int32_t value) {
    if (Has(index)) values_[index] = value;
}

int32_t CEntryModel::GetValue(int index) const {
    const auto found = values_.find(index);
    return found == values_.end() ? 0 : found->second;
}

QString CEntryModel::Text(int index) const {
    if (!Has(index)) return {};
    return index < made_ ? ToQt(text_of_(index)) : added_[static_cast<size_t>(index - made_)];
}

QVariant CEntryModel::data(const QModelIndex& index, int role) const {
    return role == Qt::DisplayRole && index.isValid() ? QVariant(Text(index.row())) : QVariant();
}

}  // namespace brindle
