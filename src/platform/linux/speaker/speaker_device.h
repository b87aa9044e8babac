// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/common/speaker/platform_speaker.h"
#include "platform/posix/file_descriptor.h"

namespace quavix {

/// Facts that an input device states about itself.
struct InputDeviceFacts {
    bool IsInputDevice = false;  // a character device of the input subsystem
    std::string Name;
    std::string PhysicalPath;
    bool HasTones = false;  // takes tone events
};

/// The input devices of the system, as far as finding the speaker needs them.
class InputDevices {
  public:
    virtual ~InputDevices() = default;

    /// Paths at which the speaker may be, the likeliest first; paths that lead nowhere are allowed.
    virtual std::vector<std::string> Candidates() const = 0;

    /// Returns the facts about the device at `path` without opening it.
    virtual InputDeviceFacts LookAt(const std::string& path) const = 0;

    /// Opens for writing only, closed on exec. No descriptor: `error` is the system's error number.
    virtual FileDescriptor Open(const std::string& path, int& error) const = 0;

    /// Returns the facts that the opened device states itself.
    virtual InputDeviceFacts Ask(const FileDescriptor& device) const = 0;
};

/// The event devices under /dev/input, looked at through /sys, so that nothing but the speaker is opened.
class LinuxInputDevices : public InputDevices {
  public:
    std::vector<std::string> Candidates() const override;
    InputDeviceFacts LookAt(const std::string& path) const override;
    FileDescriptor Open(const std::string& path, int& error) const override;
    InputDeviceFacts Ask(const FileDescriptor& device) const override;
};

/// The file of the rule. Its name sorts before 73-seat-late.rules, which turns the tag into a permission.
inline constexpr std::string_view PcSpeakerRulePath = "/etc/udev/rules.d/70-quavix-pcspkr.rules";

/// Lets whoever sits at the machine sound the PC speaker, and opens no other input device.
inline constexpr std::string_view PcSpeakerRule =
    R"(ACTION!="remove", SUBSYSTEM=="input", KERNEL=="event*", )"
    R"(ATTRS{name}=="PC Speaker", ATTRS{phys}=="isa0061/input0", TAG+="uaccess")";

/// Makes the rule count at once, without a restart.
inline constexpr std::string_view PcSpeakerRuleReload =
    "sudo udevadm control --reload && sudo udevadm trigger --subsystem-match=input --action=change";

enum class DeviceProblem { None, NotThere, NoPermission, NotASpeaker, CannotOpen };

/// The speaker's descriptor, or why there is none.
struct FoundDevice {
    FileDescriptor Device;
    std::string Path;
    DeviceProblem Problem = DeviceProblem::NotThere;
    int Error = 0;  // the system's error number, for NoPermission and CannotOpen
};

/// True where all of it says "PC speaker": nothing else is ever written to.
bool IsPcSpeaker(const InputDeviceFacts& facts);

/// Finds and opens the PC speaker. A `path` that is not empty is the only place looked at, and must be a PC
/// speaker just as well.
FoundDevice FindPcSpeaker(const InputDevices& devices, const std::string& path = {});

/// The reason why the PC speaker was not found or not opened, and what to do about it, in words for the user.
SpeakerAttempt ExplainDevice(const FoundDevice& found);

}  // namespace quavix
