// UTF-8 of the editor's logic to Qt's strings, and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace brindle {

// Bytes that are no UTF-8 become the character of their code, so that no byte is lost to the eye.
QString ToQt(std::string_view text);

std::string FromQt(const QString& text);

}  // namespace brindle
