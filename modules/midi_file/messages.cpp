// SPDX-License-Identifier: MIT
#include "modules/midi_file/messages.h"

#include <algorithm>
#include <cinttypes>
#include <cstdarg>
#include <cstdio>

namespace quavix::midi_file {
namespace {

void Compose(char* text, std::size_t size, std::uint64_t offset, const char* format, va_list values) {
    if (text == nullptr || size == 0)
        return;
    const int written = std::snprintf(text, size, "Byte %" PRIu64 ": ", offset);
    const std::size_t used = std::min(static_cast<std::size_t>(std::max(written, 0)), size - 1);
    std::vsnprintf(text + used, size - used, format, values);
}

}  // namespace

Messages::Messages(const QuavixMidiFileSink& sink, char* detail, std::size_t detailSize)
    : sink_(sink), detail_(detail), detailSize_(detailSize) {
    if (detail_ != nullptr && detailSize_ > 0)
        detail_[0] = '\0';
}

void Messages::Remark(std::uint64_t offset, const char* format, ...) {
    constexpr int MostRemarks = 100;
    if (sink_.Remark == nullptr || ++remarks_ > MostRemarks)
        return;
    char text[QUAVIX_MIDI_FILE_DETAIL_SIZE];
    va_list values;
    va_start(values, format);
    Compose(text, sizeof text, offset, format, values);
    va_end(values);
    sink_.Remark(sink_.User, text);
}

bool Messages::Fail(std::int32_t result, std::uint64_t offset, const char* format, ...) {
    result_ = result;
    va_list values;
    va_start(values, format);
    Compose(detail_, detailSize_, offset, format, values);
    va_end(values);
    return false;
}

}  // namespace quavix::midi_file
