// The filters of file dialogs.
#pragma once

#include <QStringList>
#include <string_view>

namespace brindle {

// Captions and patterns with bars between and two bars at the end, such as `Text (*.txt)|*.txt|All (*.*)|*.*||`, in the
// form of Qt: `Text (*.txt *.TXT)`, `All (*)`. Small and capital letters count as the same.
QStringList NameFilters(std::string_view filter);

}  // namespace brindle
