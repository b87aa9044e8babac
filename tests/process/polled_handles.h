// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <poll.h>
#include <utility>
#include <vector>

#include "ports/event_pump.h"
#include "process/patience.h"

namespace quavix {

/// Watches handles for a test, which runs their handlers by waiting for them.
class PolledHandles : public HandleWatch {
  public:
    Id Watch(WaitHandle handle, std::function<void()> signalled) override {
        watches_[++last_] = {handle, std::move(signalled)};
        return last_;
    }
    void Unwatch(Id watch) override { watches_.erase(watch); }

    std::size_t Count() const { return watches_.size(); }

    /// Runs handlers as their handles are signalled, until `done`. False: that never was.
    bool RunUntil(const std::function<bool()>& done) {
        while (!done()) {
            std::vector<pollfd> handles;
            std::vector<Id> ids;
            for (const auto& [id, watch] : watches_) {
                handles.push_back({static_cast<int>(watch.Handle), POLLIN, 0});
                ids.push_back(id);
            }
            if (poll(handles.data(), handles.size(), test::PatienceMs) <= 0)
                return false;
            for (std::size_t i = 0; i < handles.size(); ++i) {
                const auto found = watches_.find(ids[i]);
                if (handles[i].revents == 0 || found == watches_.end())
                    continue;
                const auto signalled = found->second.Signalled;
                signalled();
            }
        }
        return true;
    }

  private:
    struct OneWatch {
        WaitHandle Handle = 0;
        std::function<void()> Signalled;
    };

    std::map<Id, OneWatch> watches_;
    Id last_ = 0;
};

}  // namespace quavix
