// SPDX-License-Identifier: MIT
#include "generated_midi_file.h"

namespace quavix::bench {
namespace {

void Append32(Bytes& bytes, std::uint32_t number) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(number >> static_cast<unsigned>(shift)));
}

}  // namespace

Bytes Header(std::uint16_t tracks) {
    const auto high = static_cast<std::uint8_t>(tracks >> 8U);
    return {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, high, static_cast<std::uint8_t>(tracks), 1, 0xE0};
}

void AppendTrack(Bytes& file, const Bytes& content) {
    file.insert(file.end(), {'M', 'T', 'r', 'k'});
    Append32(file, static_cast<std::uint32_t>(content.size()));
    file.insert(file.end(), content.begin(), content.end());
}

Bytes FileOfNotes(std::uint8_t tracks, std::uint32_t eventsPerTrack, std::uint32_t tempoChanges) {
    Bytes file = Header(tracks);
    for (std::uint8_t track = 0; track < tracks; ++track) {
        const std::uint32_t tempoEvery =
            tempoChanges > 0 && track == 0 ? eventsPerTrack / tempoChanges : eventsPerTrack;
        Bytes content;
        bool running = false;
        for (std::uint32_t i = 0; i + 1 < eventsPerTrack; ++i) {
            if (i > 0 && i % 3 == 0)
                content.insert(content.end(), {0x83, 0x60});
            else
                content.push_back(i > 0 ? 10 : 0);
            if (i % tempoEvery == tempoEvery - 1) {
                content.insert(content.end(), {0xFF, 0x51, 3, 7, 0xA1, static_cast<std::uint8_t>(i)});
                running = false;
                continue;
            }
            if (!running)
                content.push_back(static_cast<std::uint8_t>(0x90 | (track & 0xF)));
            running = true;
            content.insert(content.end(),
                           {static_cast<std::uint8_t>(30 + i % 64), static_cast<std::uint8_t>(i % 2 * 96)});
        }
        content.insert(content.end(), {0, 0xFF, 0x2F, 0});
        AppendTrack(file, content);
    }
    return file;
}

}  // namespace quavix::bench
