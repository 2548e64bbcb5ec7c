// Who opens a preview window.
#pragma once

namespace brindle {

class CNCPreviewOwner {
public:
    virtual ~CNCPreviewOwner() = default;
    // The window is being closed. It may be destroyed, but not before the operation that calls this has returned.
    virtual void OnPreviewClosed() = 0;
};

}  // namespace brindle
