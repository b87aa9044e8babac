// SPDX-License-Identifier: MIT
#include <array>
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/linux/speaker/speaker_device.h"

namespace quavix {
namespace {

TEST(LinuxInputDevices, ListTheSpeakersOwnLinkFirst) {
    const auto paths = LinuxInputDevices().Candidates();
    ASSERT_FALSE(paths.empty());
    EXPECT_EQ(paths.front(), "/dev/input/by-path/platform-pcspkr-event-spkr");
}

TEST(LinuxInputDevices, IgnoreOtherFiles) {
    const LinuxInputDevices devices;
    for (const char* path : {"/dev/null", "/dev/tty", "/etc/passwd", "/tmp", "/nowhere/at/all"})
        EXPECT_FALSE(devices.LookAt(path).IsInputDevice) << path;
}

TEST(LinuxInputDevices, DoNotTakeAnOpenedPipeOrNullDeviceForASpeaker) {
    const LinuxInputDevices devices;
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const FileDescriptor readEnd(ends[0]);
    EXPECT_FALSE(IsPcSpeaker(devices.Ask(FileDescriptor(ends[1]))));
    int error = 0;
    EXPECT_FALSE(IsPcSpeaker(devices.Ask(devices.Open("/dev/null", error))));
}

TEST(LinuxInputDevices, OpenForWritingOnlyAndNotForOtherPrograms) {
    int error = 0;
    const FileDescriptor null = LinuxInputDevices().Open("/dev/null", error);
    ASSERT_TRUE(null);
    EXPECT_EQ(fcntl(null.Get(), F_GETFL) & O_ACCMODE, O_WRONLY);
    EXPECT_EQ(fcntl(null.Get(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

TEST(LinuxInputDevices, SayWhyOneCannotBeOpened) {
    int error = 0;
    EXPECT_FALSE(LinuxInputDevices().Open("/nowhere/at/all", error));
    EXPECT_EQ(error, ENOENT);
}

}  // namespace
}  // namespace quavix
