// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <sys/types.h>
#include <unistd.h>

namespace quavix::test {

/// Runs as an ordinary user while it exists, because permissions do not restrict the superuser.
class OrdinaryUser {
  public:
    OrdinaryUser() {
        if (::geteuid() == 0)
            isRoot_ = ::seteuid(Nobody) == 0;
    }
    ~OrdinaryUser() {
        if (isRoot_ && ::seteuid(0) != 0)
            std::abort();
    }

    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  private:
    static constexpr uid_t Nobody = 65534;
    bool isRoot_ = false;
};

}  // namespace quavix::test
