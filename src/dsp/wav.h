// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <optional>
#include <ostream>
#include <span>
#include <vector>

namespace quavix {

/// All WAV files here hold whole numbers of 16 bits.
inline constexpr int WavBytesPerSample = 2;

/// Size of a RIFF/WAVE file, less 8 bytes, that its 32-bit sizes can state: the greatest one is "unknown".
inline constexpr std::int64_t MostRiffBytes = 0xFFFF'FFFE;

/// Writes 16-bit PCM sound as a RIFF/WAVE stream while it is being made.
///
/// A frame is one sample for each channel. A RIFF file holds what fits into 4 GiB with its header, about 12
/// hours of mono at 48,000 Hz. With MakeRoom() the file becomes RF64 (EBU Tech 3306) when it grows beyond
/// that. The room is not made in every file, as 36 bytes of header that readers pass over would change the
/// bytes of all ordinary files, and it can't be made later, as gigabytes of sound would have to be moved.
///
/// Any thread, one at a time; the stream must outlive the writer. The destructor does not finish the file.
class WavWriter {
  public:
    /// Writes from where `out` stands (opened as binary), beginning with the first call below that writes.
    /// Until StateSizes() the sizes in the header are "unknown" (0xFFFFFFFF). `sampleRate` is 1 or more,
    /// `channels` 1..32767, and a second of sound less than 4 GiB: anything else writes nothing, and every
    /// call fails. `mostRiffBytes` is what a RIFF file can hold at most.
    WavWriter(std::ostream& out, std::int32_t sampleRate, std::int32_t channels,
              std::int64_t mostRiffBytes = MostRiffBytes);

    /// Lets the header have room for the sizes of a file beyond 4 GiB. Has no effect once something has been
    /// written, and on a stream that cannot seek.
    void MakeRoom();

    /// Appends frames, the samples of a frame one after the other. -1..1 becomes -32767..32767, rounded to
    /// the nearest; values outside are clipped, and what is not a number is 0. False, with nothing written,
    /// where the samples are no whole number of frames, where the file would grow too long (then TooLong()),
    /// after Finish() and after an error; false when the stream fails, and what it holds then is anyone's
    /// guess.
    bool Write(std::span<const float> samples);

    /// Appends `frames` of silence; 0 or less is none. Fails as Write() does.
    bool WriteSilence(std::int64_t frames);

    /// The same in no time: leaves a hole in a file, which reads as silence once frames have been written
    /// behind it. A stream that cannot seek gets the silence itself.
    bool SkipSilence(std::int64_t frames);

    /// States the sizes of what has been written in the header, and flushes. A stream that cannot seek keeps
    /// "unknown" as its sizes, which is no error.
    bool StateSizes();

    /// Completes the file: states its sizes and takes no further frames. A file that had grown too long is
    /// completed with what it holds. A second call does nothing and returns the same.
    bool Finish();

    /// Whether frames were refused because a file without room would have passed 4 GiB.
    bool TooLong() const { return tooLong_; }

    /// Frames written so far.
    std::int64_t Frames() const { return frames_; }

  private:
    bool Begin();
    bool Reserve(std::int64_t frames);
    bool CanSeek() const { return start_ != std::ostream::pos_type(-1); }
    bool WriteHeader(std::optional<std::int64_t> frames);

    std::ostream& out_;
    std::int64_t sampleRate_;
    std::int64_t channels_;
    std::int64_t mostRiffBytes_;
    std::ostream::pos_type start_ = -1;
    std::int64_t frames_ = 0;
    bool begun_ = false;
    bool hasRoom_ = false;
    bool tooLong_ = false;
    bool failed_ = false;
    std::optional<bool> finished_;
};

/// Reads 16-bit PCM sound from a RIFF/WAVE or RF64 stream piece by piece. Any thread, one at a time; the
/// stream must outlive the reader.
class WavReader {
  public:
    /// Reads the header from where `in` stands (opened as binary).
    explicit WavReader(std::istream& in);

    /// Whether the header is one of such a sound; otherwise there is nothing to read.
    bool IsGood() const { return channels_ > 0; }
    std::int32_t SampleRate() const { return sampleRate_; }
    std::int32_t Channels() const { return channels_; }

    /// Reads whole frames as -1..1, the samples of a frame one after the other, as many as `samples` holds.
    /// Returns the number of samples; 0 at the end of the sound, be it the one that the header states or the
    /// stream's own.
    std::size_t Read(std::span<float> samples);

  private:
    bool ReadHeader();
    bool ReadFormat(std::uint64_t size);

    std::istream& in_;
    std::int32_t channels_ = 0;
    std::int32_t sampleRate_ = 0;
    std::uint64_t bytesLeft_ = 0;
    std::vector<unsigned char> bytes_;
};

}  // namespace quavix
