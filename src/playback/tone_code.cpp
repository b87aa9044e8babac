// SPDX-License-Identifier: MIT
#include "playback/tone_code.h"

#include <fmt/format.h>

#include "shell/numbers.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

constexpr int FrequencyWidth = 5;
constexpr int DurationWidth = 6;

}  // namespace

void ToneCode::WriteCode(std::string_view textToWrite) {
    if (fields_.UseWriteCode)
        RaiseFileError(files_.Append(fileName_, fmt::format("{}\r\n", textToWrite)), fileName_);
}

void ToneCode::WriteTone(std::int32_t frequency, double durationMs, std::string_view comment) {
    if (fields_.UseWriteCode) {
        WriteCode(fmt::format("Beep       {}, {}     '{}", NumPad(frequency, " ", FrequencyWidth),
                              NumPad(durationMs, " ", DurationWidth), comment));
    }
}

void ToneCode::WriteWait(std::int32_t durationMs) {
    if (fields_.UseWriteCode)
        WriteCode("MsgWaitObj        " + NumPad(durationMs, " ", DurationWidth));
}

}  // namespace quavix
