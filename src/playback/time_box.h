// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "music/main_fields.h"
#include "shell/watched.h"

namespace quavix {

/// A text box for one number of a time of day, 0 to `highest`. Text that can be no part of one reverts to
/// what stood there before; what is out of range turns the box orange.
class TimeBox {
  public:
    explicit TimeBox(int highest);

    Watched<std::string> Text;
    Watched<std::int32_t> BackColor{colour::WindowBackground};

    /// The number; none while the box is empty or holds one out of range.
    std::optional<int> Number() const;

  private:
    void Change();

    int highest_;
    std::string accepted_;
};

}  // namespace quavix
