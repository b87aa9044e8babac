// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <linux/input.h>
#include <linux/major.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <fmt/format.h>

#include "platform/linux/speaker/speaker_device.h"

namespace quavix {
namespace {

bool IsInputNode(const struct stat& node) {
    return S_ISCHR(node.st_mode) && major(node.st_rdev) == INPUT_MAJOR;
}

std::string FirstLine(const std::string& file) {
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line;
}

// A bit list in /sys is a row of hexadecimal words; the last word has the lowest bits.
bool ListedBit(const std::string& file, unsigned bit) {
    const std::string line = FirstLine(file);
    const std::string word = line.substr(line.find_last_of(' ') + 1);
    std::uint64_t bits = 0;
    for (const char digit : word) {
        const auto at = std::string("0123456789abcdef").find(digit);
        if (at == std::string::npos)
            return false;
        bits = bits * 16 + at;
    }
    return ((bits >> bit) & 1) != 0;
}

bool AskedBit(int device, unsigned type, unsigned bit) {
    unsigned long bits = 0;
    return ioctl(device, EVIOCGBIT(type, sizeof bits), &bits) >= 0 && ((bits >> bit) & 1) != 0;
}

}  // namespace

std::vector<std::string> LinuxInputDevices::Candidates() const {
    std::vector<std::string> paths;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/input", error)) {
        if (entry.path().filename().string().starts_with("event"))
            paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    paths.insert(paths.begin(), "/dev/input/by-path/platform-pcspkr-event-spkr");
    return paths;
}

InputDeviceFacts LinuxInputDevices::LookAt(const std::string& path) const {
    struct stat node {};
    InputDeviceFacts facts;
    facts.IsInputDevice = stat(path.c_str(), &node) == 0 && IsInputNode(node);
    if (!facts.IsInputDevice)
        return facts;
    const std::string device =
        fmt::format("/sys/dev/char/{}:{}/device/", major(node.st_rdev), minor(node.st_rdev));
    facts.Name = FirstLine(device + "name");
    facts.PhysicalPath = FirstLine(device + "phys");
    facts.HasTones =
        ListedBit(device + "capabilities/ev", EV_SND) && ListedBit(device + "capabilities/snd", SND_TONE);
    return facts;
}

FileDescriptor LinuxInputDevices::Open(const std::string& path, int& error) const {
    FileDescriptor device(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    error = device ? 0 : errno;
    return device;
}

InputDeviceFacts LinuxInputDevices::Ask(const FileDescriptor& device) const {
    struct stat node {};
    InputDeviceFacts facts;
    facts.IsInputDevice = fstat(device.Get(), &node) == 0 && IsInputNode(node);
    if (!facts.IsInputDevice)
        return facts;
    std::array<char, 256> text{};
    if (ioctl(device.Get(), EVIOCGNAME(text.size() - 1), text.data()) >= 0)
        facts.Name = text.data();
    text.fill('\0');
    if (ioctl(device.Get(), EVIOCGPHYS(text.size() - 1), text.data()) >= 0)
        facts.PhysicalPath = text.data();
    facts.HasTones = AskedBit(device.Get(), 0, EV_SND) && AskedBit(device.Get(), EV_SND, SND_TONE);
    return facts;
}

}  // namespace quavix
