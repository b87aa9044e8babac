// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/speaker/speaker_device.h"

namespace quavix {

/// The event devices under /dev/input, looked at through /sys, so that nothing but the speaker is opened.
class LinuxInputDevices : public InputDevices {
  public:
    std::vector<std::string> Candidates() const override;
    InputDeviceFacts LookAt(const std::string& path) const override;
    FileDescriptor Open(const std::string& path, int& error) const override;
    InputDeviceFacts Ask(const FileDescriptor& device) const override;
};

}  // namespace quavix
