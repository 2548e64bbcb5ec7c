#include "file_filter.h"

#include "qt_text.h"

namespace brindle {
namespace {

QString PatternsOf(const QString& patterns) {
    QStringList result;
    for (const QString& pattern : patterns.split(';', Qt::SkipEmptyParts)) {
        if (pattern == QLatin1String("*.*")) {
            result << QStringLiteral("*");
        } else {
            result << pattern.toLower() << pattern.toUpper();
        }
    }
    return result.join(' ');
}

}  // namespace

QStringList NameFilters(std::string_view filter) {
    const QStringList words = ToQt(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < words.size(); i += 2) {
        const QString caption = words[i].section('(', 0, 0).trimmed();
        filters << QStringLiteral("%1 (%2)").arg(caption, PatternsOf(words[i + 1]));
    }
    return filters;
}

}  // namespace brindle
