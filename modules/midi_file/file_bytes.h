// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace quavix::midi_file {

/// A chunk is a name, the length of its content in four bytes, and its content.
inline constexpr std::uint64_t ChunkNameSize = 4;
inline constexpr std::uint64_t ChunkHeadSize = 8;
inline constexpr std::string_view TrackName = "MTrk";

/// The bytes of a file, accessed by offset. Numbers are big-endian unless the name says otherwise.
class FileBytes {
  public:
    FileBytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    std::uint64_t Size() const { return size_; }
    const std::uint8_t* At(std::uint64_t offset) const { return data_ + static_cast<std::size_t>(offset); }

    bool Has(std::uint64_t offset, std::uint64_t count) const {
        return offset <= size_ && count <= size_ - offset;
    }
    bool Is(std::uint64_t offset, std::string_view text) const {
        return Has(offset, text.size()) && std::memcmp(At(offset), text.data(), text.size()) == 0;
    }
    /// Reads 2 or 4 bytes, which must be within the file.
    std::uint32_t U16(std::uint64_t offset) const {
        return static_cast<std::uint32_t>(At(offset)[0] << 8U | At(offset)[1]);
    }
    std::uint32_t U32(std::uint64_t offset) const { return U16(offset) << 16U | U16(offset + 2); }
    std::uint32_t LittleEndian32(std::uint64_t offset) const { return __builtin_bswap32(U32(offset)); }

    /// Returns true if a chunk could begin here: four printable characters and a length that fits into the
    /// file.
    bool LooksLikeChunk(std::uint64_t offset) const {
        if (!Has(offset, ChunkHeadSize))
            return false;
        for (std::uint64_t i = offset; i < offset + ChunkNameSize; ++i) {
            if (*At(i) < ' ' || *At(i) > '~')
                return false;
        }
        return Has(offset + ChunkHeadSize, U32(offset + ChunkNameSize));
    }

    /// Returns the offset of the first `text` at `from` or later that ends by `end`, if there is one.
    std::optional<std::uint64_t> Find(std::string_view text, std::uint64_t from, std::uint64_t end) const {
        if (from >= end || end > size_)
            return {};
        const std::string_view all(reinterpret_cast<const char*>(data_), static_cast<std::size_t>(end));
        const std::size_t found = all.find(text, static_cast<std::size_t>(from));
        return found == std::string_view::npos ? std::nullopt : std::optional<std::uint64_t>(found);
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

}  // namespace quavix::midi_file
