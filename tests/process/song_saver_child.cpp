// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "platform/common/system_ports.h"
#include "songfile/song_format.h"

// Saves songs of different lengths into one file, again and again, until it is killed or saving fails. Writes
// a byte to standard output after the first one.
int main(int argumentCount, char** arguments) {
    using namespace quavix;
    if (argumentCount != 2)
        return 2;
    const MainFields fields;
    const std::unique_ptr<Files> files = MakeFiles();
    for (std::int32_t pass = 0;; ++pass) {
        MusicList list;
        constexpr std::int32_t Songs = 7;
        constexpr std::int32_t LinesMore = 3000;
        const std::string note{'C', static_cast<char>('0' + pass % Songs)};
        for (std::int32_t i = 0; i < (pass % Songs + 1) * LinesMore; ++i)
            list.Append("Quarter", note, "", "");
        list.Append("Whole", "", "", "");
        std::error_code error;
        const auto file = files->OpenForOutput(arguments[1], error);
        if (!file || WriteSong(fields.Song, fields.Entry, list, *file) || file->Commit())
            return 1;
        if (pass == 0 && (std::fputc('.', stdout) == EOF || std::fflush(stdout) != 0))
            return 1;
    }
}
