// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/common/system_ports.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_time.h"
#include "songfile/song_reader.h"

namespace quavix::test {

/// A song that is read from real files, with simulated dialogs.
struct SongsOnDisk {
    MainFields Fields;
    MusicList List;
    quavix::Timeline Timeline;
    SimulatedTime Time;
    SimulatedMessageBoxes Boxes{Time, Timeline};
    SimulatedFilePicker Picker{Time, Timeline};
    RecordedLoadingView Loading{Time, Timeline};
    const std::unique_ptr<Files> Disk = MakeFiles();
    DebugLog Log{*Disk, Time, "unused"};
    SongReader Reader{Fields.Song, Fields.Entry, List, *Disk, Boxes, Picker, Loading, Log};
};

}  // namespace quavix::test
