// SPDX-License-Identifier: MIT
#pragma once

#include "music/song_changes.h"
#include "songfile/song_document.h"
#include "songfile/song_reader.h"
#include "songfile/song_writer.h"

namespace quavix {

struct CommonParts;
struct SongEditing;

/// The parts of a program that load and save songs.
struct SongStorage {
    SongStorage(CommonParts& common, SongEditing& editing);

    quavix::SongReader SongReader;
    quavix::SongWriter SongWriter;
    quavix::SongChanges SongChanges;
    quavix::SongDocument SongDocument;
};

}  // namespace quavix
