// SPDX-License-Identifier: MIT
#include "midi/device_names.h"

#include <algorithm>

namespace quavix {

std::vector<std::string> DeviceNames(MidiPort& port, std::int32_t first, std::int32_t count) {
    std::vector<std::string> names;
    for (std::int32_t device = first; count > 0 && device < count; ++device)
        names.emplace_back(port.DeviceName(device));
    return names;
}

std::int32_t PlaceOfDevice(const std::vector<std::string>& before, std::int32_t chosen,
                           const std::vector<std::string>& now) {
    const auto place = static_cast<std::size_t>(chosen);
    if (place >= before.size())
        return -1;
    if (place < now.size() && now[place] == before[place])
        return chosen;
    const auto found = std::find(now.begin(), now.end(), before[place]);
    return found == now.end() ? -1 : static_cast<std::int32_t>(found - now.begin());
}

void FindDevicesAgain(MidiPort& port, std::int32_t first, Watched<std::vector<std::string>>& devices,
                      Watched<std::int32_t>& chosen) {
    const std::vector<std::string> before = devices;
    const std::int32_t chosenBefore = chosen;
    devices = DeviceNames(port, first, port.DeviceCount());
    chosen = PlaceOfDevice(before, chosenBefore, devices);
}

}  // namespace quavix
