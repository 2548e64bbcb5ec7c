#include "host/console/report.h"

#include <iostream>

#include "host/console/json_format.h"
#include "host/console/sarif_format.h"
#include "host/console/text_format.h"

namespace brindle::host {

void CReport::Take(Message message) {
    const bool is_grave = message.kind == MessageKind::kError || message.kind == MessageKind::kLoss;
    if (options_.quiet && !is_grave) return;
    ++counts_[static_cast<size_t>(message.kind)];
    if (options_.format == ReportFormat::kText || message.kind == MessageKind::kNote) {
        std::cerr << TextOf(message);
    } else {
        kept_.push_back(std::move(message));
    }
}

void CReport::Write() const {
    if (options_.format == ReportFormat::kJson) std::cout << JsonOf(kept_);
    if (options_.format == ReportFormat::kSarif) std::cout << SarifOf(kept_);
}

}  // namespace brindle::host
