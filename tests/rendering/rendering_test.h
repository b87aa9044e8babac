// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "rendering/song_renderer.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"
#include "support/wav_sound.h"

namespace quavix::test {

/// Renders files of a simulated disk, on simulated time.
class RenderingTest : public testing::Test {
  protected:
    WavSound RenderWith(SoundLibrary& library, MidiFileReader& midiFiles, const std::string& programFolder) {
        std::stringstream out;
        const auto progress = [this](double share) {
            Shares.push_back(share);
            return Shares.size() < StopAfter;
        };
        SongRenderer{Disk, Boxes, library, midiFiles, programFolder, progress}.Render(Options, out);
        return ReadWav(out.str()).value();
    }

    SimulatedFiles Disk;
    Timeline Events;
    SimulatedTime Time;
    SimulatedMessageBoxes Boxes{Time, Events};
    RenderOptions Options;
    /// Progress reported so far, 0..1.
    std::vector<double> Shares;
    /// Number of progress reports after which rendering is cancelled.
    std::size_t StopAfter = SIZE_MAX;
};

}  // namespace quavix::test
