// SPDX-License-Identifier: MIT
#include "platform/common/immediate_end.h"

#include <cstdio>
#include <cstdlib>

namespace quavix {

void ImmediateEnd::EndProcess() {
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS);
}

}  // namespace quavix
