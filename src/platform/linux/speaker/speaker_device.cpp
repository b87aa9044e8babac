// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_device.h"

#include <cerrno>
#include <utility>

namespace quavix {

bool IsPcSpeaker(const InputDeviceFacts& facts) {
    return facts.IsInputDevice && facts.HasTones && facts.Name == "PC Speaker" &&
           facts.PhysicalPath == "isa0061/input0";
}

namespace {

FoundDevice OpenSpeaker(const InputDevices& devices, const std::string& path) {
    FoundDevice found;
    found.Path = path;
    found.Device = devices.Open(path, found.Error);
    if (!found.Device) {
        const bool denied = found.Error == EACCES || found.Error == EPERM;
        found.Problem = denied ? DeviceProblem::NoPermission : DeviceProblem::CannotOpen;
    } else if (IsPcSpeaker(devices.Ask(found.Device))) {
        found.Problem = DeviceProblem::None;
    } else {
        // The path may lead to another device than when it was examined.
        found.Device.Close();
        found.Problem = DeviceProblem::NotASpeaker;
    }
    return found;
}

}  // namespace

FoundDevice FindPcSpeaker(const InputDevices& devices, const std::string& path) {
    if (!path.empty()) {
        if (IsPcSpeaker(devices.LookAt(path)))
            return OpenSpeaker(devices, path);
        return {.Path = path, .Problem = DeviceProblem::NotASpeaker};
    }
    FoundDevice best;
    for (const std::string& candidate : devices.Candidates()) {
        if (!IsPcSpeaker(devices.LookAt(candidate)))
            continue;
        FoundDevice found = OpenSpeaker(devices, candidate);
        if (found.Problem == DeviceProblem::None)
            return found;
        if (best.Problem == DeviceProblem::NotThere)
            best = std::move(found);
    }
    return best;
}

}  // namespace quavix
