// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "music/main_fields.h"
#include "ports/files.h"

namespace quavix {

/// The tone-code file: one statement per tone or wait, appended, of a small program that would play the same
/// again. Opened and closed for each line, so that a crash loses nothing. Written only while UseWriteCode is
/// set; a file that can't be written raises the classic file error.
class ToneCode {
  public:
    ToneCode(const MainFields& fields, Files& files, std::string fileName)
        : fields_(fields), files_(files), fileName_(std::move(fileName)) {}

    void WriteCode(std::string_view textToWrite);

    /// A tone of `frequency` Hz; `comment` says what it is ("C4").
    void WriteTone(std::int32_t frequency, double durationMs, std::string_view comment);
    void WriteWait(std::int32_t durationMs);

  private:
    const MainFields& fields_;
    Files& files_;
    std::string fileName_;
};

}  // namespace quavix
