// SPDX-License-Identifier: MIT
#include "support/wav_sound.h"

#include <fstream>
#include <istream>
#include <sstream>

#include "dsp/wav.h"

namespace quavix::test {
namespace {

std::optional<WavSound> Read(std::istream& in) {
    WavReader reader(in);
    if (!reader.IsGood())
        return std::nullopt;
    WavSound sound{reader.SampleRate(), reader.Channels(), {}};
    std::vector<float> block(65536);
    while (const std::size_t count = reader.Read(block))
        sound.Samples.insert(sound.Samples.end(), block.begin(),
                             block.begin() + static_cast<std::ptrdiff_t>(count));
    return sound;
}

}  // namespace

std::optional<WavSound> ReadWav(const std::string& bytes) {
    std::istringstream in(bytes);
    return Read(in);
}

std::optional<WavSound> ReadWavFile(const std::string& fileName) {
    std::ifstream in(fileName, std::ios::binary);
    return Read(in);
}

}  // namespace quavix::test
