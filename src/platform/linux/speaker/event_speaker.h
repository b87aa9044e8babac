// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/forked_guard.h"

namespace quavix {

/// The real PC speaker, through the kernel's event device. A guard process makes sure that the device is
/// never left sounding, and no tone sounds without the guard.
class EventSpeaker : public PlatformSpeaker {
  public:
    /// `device` is open for writing and known to be a PC speaker. Starts the guard; if that is impossible,
    /// the speaker has failed from the beginning. `lock` is kept as long as the speaker.
    EventSpeaker(FileDescriptor device, FileDescriptor lock, ToneClock clock);

    /// Switches the device off.
    ~EventSpeaker() override;

    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override;
    bool Failed() const override { return !failure_.empty(); }

  private:
    bool StartGuard();
    bool SwitchOn(std::int32_t frequency, std::int64_t deadlineNs);
    void SwitchOff();

    FileDescriptor lock_;
    FileDescriptor device_;
    ForkedGuard guard_;
    ToneClock clock_;
    std::string failure_;
};

}  // namespace quavix
