#include "qt_text.h"

#include <QByteArrayView>
#include <algorithm>

namespace brindle {
namespace {

QByteArrayView ViewOf(std::string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

// The length of the UTF-8 sequence that begins `text`, 0 if none does.
size_t SequenceLength(std::string_view text) {
    for (size_t length = 1; length <= std::min<size_t>(4, text.size()); ++length) {
        if (ViewOf(text.substr(0, length)).isValidUtf8()) return length;
    }
    return 0;
}

}  // namespace

QString ToQt(std::string_view text) {
    if (ViewOf(text).isValidUtf8()) return QString::fromUtf8(ViewOf(text));
    QString result;
    while (!text.empty()) {
        const size_t length = SequenceLength(text);
        if (length == 0) {
            result += QChar(static_cast<ushort>(static_cast<unsigned char>(text.front())));
        } else {
            result += QString::fromUtf8(ViewOf(text.substr(0, length)));
        }
        text.remove_prefix(std::max<size_t>(length, 1));
    }
    return result;
}

std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace brindle
