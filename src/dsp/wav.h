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

/// Bytes per sample: all WAV files here have 16-bit integer samples.
inline constexpr int WavBytesPerSample = 2;

/// Greatest size of a RIFF/WAVE file, less 8 bytes, in its 32-bit header: the value above means "unknown".
inline constexpr std::int64_t MostRiffBytes = 0xFFFF'FFFE;

/// Writes 16-bit PCM sound as a RIFF/WAVE stream while it is being made.
///
/// A frame is one sample for each channel. A RIFF file is limited to 4 GiB including its header, about 12
/// hours of mono at 48,000 Hz. After MakeRoom() the file becomes RF64 (EBU Tech 3306) when it grows beyond
/// that. The room is optional, because its 36 bytes of header would change the bytes of ordinary files; it
/// can't be made later, because gigabytes of sound would have to be moved.
///
/// Any thread, one at a time; the stream must outlive the writer. The destructor does not finish the file.
class WavWriter {
  public:
    /// Writes from the current position of `out` (opened as binary), from the first writing call below on.
    /// Until StateSizes() the sizes in the header are "unknown" (0xFFFFFFFF). `sampleRate` is 1 or more,
    /// `channels` 1..32767, and a second of sound less than 4 GiB; with other values every call fails without
    /// writing. `mostRiffBytes` is the greatest size of a RIFF file.
    WavWriter(std::ostream& out, std::int32_t sampleRate, std::int32_t channels,
              std::int64_t mostRiffBytes = MostRiffBytes);

    /// Reserves room in the header for the sizes of a file beyond 4 GiB. Has no effect after the first write,
    /// or if the stream can't seek.
    void MakeRoom();

    /// Appends frames, the samples of a frame one after the other. -1..1 becomes -32767..32767, rounded to
    /// the nearest; values outside are clipped, and NaN becomes 0. Returns false without writing if the
    /// number of samples is not a multiple of the channels, if the file would grow too long (then TooLong()),
    /// after Finish() and after an error. Also returns false if the stream fails; its content is then
    /// undefined.
    bool Write(std::span<const float> samples);

    /// Appends `frames` frames of silence; fails as Write() does. A value of 0 or less appends nothing.
    bool WriteSilence(std::int64_t frames);

    /// Same without writing: leaves a hole in the file, which reads as silence once later frames have been
    /// written. If the stream can't seek, writes the silence itself.
    bool SkipSilence(std::int64_t frames);

    /// Writes the current sizes into the header, and flushes. If the stream can't seek, the sizes stay
    /// "unknown", which is no error.
    bool StateSizes();

    /// Completes the file: writes its sizes, and accepts no further frames. A file that had grown too long is
    /// completed with its present content. A second call does nothing and returns the same.
    bool Finish();

    /// Returns true if frames were refused because a file without room would have exceeded 4 GiB.
    bool TooLong() const { return tooLong_; }

    /// Returns the number of frames written so far.
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
    /// Reads the header at the current position of `in` (opened as binary).
    explicit WavReader(std::istream& in);

    /// Returns true if the header describes such a sound; otherwise Read() returns 0.
    bool IsGood() const { return channels_ > 0; }
    std::int32_t SampleRate() const { return sampleRate_; }
    std::int32_t Channels() const { return channels_; }

    /// Reads whole frames as -1..1, the samples of a frame one after the other, as many as `samples` holds.
    /// Returns the number of samples; 0 at the end of the sound, either the header's or the stream's.
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
