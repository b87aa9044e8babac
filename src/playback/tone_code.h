// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "ports/files.h"
#include "shell/numbers.h"
#include "shell/runtime_error.h"

namespace quavix {

/// The tone-code file: a small program that plays the same tones again, one appended statement per tone or
/// wait. Opened and closed for each line, so that a crash loses nothing. Written only while UseWriteCode is
/// set; if the file can't be written, raises the classic file error.
class ToneCode {
  public:
    ToneCode(Files& files, std::string fileName) : files_(files), fileName_(std::move(fileName)) {}

    bool UseWriteCode = false;

    void WriteCode(std::string_view textToWrite) {
        if (UseWriteCode)
            RaiseFileError(files_.Append(fileName_, fmt::format("{}\r\n", textToWrite)), fileName_);
    }

    /// Writes a tone of `frequency` Hz and `durationMs` ms; `comment` names it ("C4").
    void WriteTone(std::int32_t frequency, double durationMs, std::string_view comment) {
        if (UseWriteCode) {
            WriteCode(fmt::format("Beep       {}, {}     '{}", NumPad(frequency, " ", FrequencyWidth),
                                  NumPad(durationMs, " ", DurationWidth), comment));
        }
    }
    void WriteWait(std::int32_t durationMs) {
        if (UseWriteCode)
            WriteCode("MsgWaitObj        " + NumPad(durationMs, " ", DurationWidth));
    }

  private:
    static constexpr int FrequencyWidth = 5;
    static constexpr int DurationWidth = 6;

    Files& files_;
    std::string fileName_;
};

}  // namespace quavix
