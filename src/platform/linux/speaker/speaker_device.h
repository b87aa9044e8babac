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

/// The input devices of the system: the functions needed to find the speaker.
class InputDevices {
  public:
    virtual ~InputDevices() = default;

    /// Returns possible paths of the speaker, most likely first; they need not exist.
    virtual std::vector<std::string> Candidates() const = 0;

    /// Returns the facts about the device at `path` without opening it.
    virtual InputDeviceFacts LookAt(const std::string& path) const = 0;

    /// Opens for writing only, closed on exec. Without a descriptor, `error` is the system's error number.
    virtual FileDescriptor Open(const std::string& path, int& error) const = 0;

    /// Returns the facts that the opened device states itself.
    virtual InputDeviceFacts Ask(const FileDescriptor& device) const = 0;
};

/// The event devices under /dev/input, examined through /sys, so that only the speaker is opened.
class LinuxInputDevices : public InputDevices {
  public:
    std::vector<std::string> Candidates() const override;
    InputDeviceFacts LookAt(const std::string& path) const override;
    FileDescriptor Open(const std::string& path, int& error) const override;
    InputDeviceFacts Ask(const FileDescriptor& device) const override;
};

/// The file of the rule. Its name sorts before 73-seat-late.rules, which turns the tag into a permission.
inline constexpr std::string_view PcSpeakerRulePath = "/etc/udev/rules.d/70-quavix-pcspkr.rules";

/// Allows the user at the machine to sound the PC speaker; opens no other input device.
inline constexpr std::string_view PcSpeakerRule =
    R"(ACTION!="remove", SUBSYSTEM=="input", KERNEL=="event*", )"
    R"(ATTRS{name}=="PC Speaker", ATTRS{phys}=="isa0061/input0", TAG+="uaccess")";

/// Applies the rule at once, without a restart.
inline constexpr std::string_view PcSpeakerRuleReload =
    "sudo udevadm control --reload && sudo udevadm trigger --subsystem-match=input --action=change";

enum class DeviceProblem { None, NotThere, NoPermission, NotASpeaker, CannotOpen };

/// The speaker's descriptor, or the reason why there is none.
struct FoundDevice {
    FileDescriptor Device{};
    std::string Path{};
    DeviceProblem Problem = DeviceProblem::NotThere;
    int Error = 0;  // the system's error number, for NoPermission and CannotOpen
};

/// Returns true if all facts match the PC speaker; no other device is ever written to.
bool IsPcSpeaker(const InputDeviceFacts& facts);

/// Finds and opens the PC speaker. A `path`, unless empty, is the only place examined, and must be a PC
/// speaker too.
FoundDevice FindPcSpeaker(const InputDevices& devices, const std::string& path = {});

/// Returns the reason why the PC speaker was not found or opened, and a remedy, in words for the user.
SpeakerAttempt ExplainDevice(const FoundDevice& found);

}  // namespace quavix
