#include "host/edit/find_toolkit.h"

#include "host/console/messages.h"

namespace brindle::host {

CToolkit* FindToolkit() {
    CToolkit* const toolkit = ActiveToolkit();
    if (toolkit == nullptr) {
        PrintError({}, "the editor can't open: it needs a display, and its plugin beside the library");
    }
    return toolkit;
}

}  // namespace brindle::host
