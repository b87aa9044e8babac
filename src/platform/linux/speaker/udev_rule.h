// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quavix {

/// Where the rule belongs. The name sorts before 73-seat-late.rules, which turns the tag into a permission.
inline constexpr std::string_view PcSpeakerRulePath = "/etc/udev/rules.d/70-quavix-pcspkr.rules";

/// Lets whoever sits at the machine sound the PC speaker, and opens no other input device.
inline constexpr std::string_view PcSpeakerRule =
    R"(ACTION!="remove", SUBSYSTEM=="input", KERNEL=="event*", )"
    R"(ATTRS{name}=="PC Speaker", ATTRS{phys}=="isa0061/input0", TAG+="uaccess")";

/// Makes the rule count at once, without a restart.
inline constexpr std::string_view PcSpeakerRuleReload =
    "sudo udevadm control --reload && sudo udevadm trigger --subsystem-match=input --action=change";

}  // namespace quavix
