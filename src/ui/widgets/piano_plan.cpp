// SPDX-License-Identifier: MIT
#include "ui/widgets/piano_plan.h"

#include <array>

namespace quavix {
namespace {

constexpr double BlackWidth = 0.6;  // relative to a white key
constexpr double BlackHeight = 0.62;

/// The left edge of a note's key within an octave, in white keys. The black keys are spaced as on a real
/// piano.
struct NotePlace {
    const char* Caption;
    double Left;
};
constexpr std::array<NotePlace, PianoPlan::KeysPerGroup> Places{{{"C", 0},
                                                                 {"", 1 - 0.37},
                                                                 {"D", 1},
                                                                 {"", 2 - 0.23},
                                                                 {"E", 2},
                                                                 {"F", 3},
                                                                 {"", 4 - 0.38},
                                                                 {"G", 4},
                                                                 {"", 5 - 0.3},
                                                                 {"A", 5},
                                                                 {"", 6 - 0.22},
                                                                 {"B", 6}}};

const NotePlace& PlaceOf(int key) {
    return Places[static_cast<std::size_t>(key % PianoPlan::KeysPerGroup)];
}

}  // namespace

bool PianoPlan::IsBlack(int key) {
    return *PlaceOf(key).Caption == '\0';
}

QString PianoPlan::Caption(int key) {
    return PlaceOf(key).Caption;
}

QRectF PianoPlan::KeyRect(int key) const {
    constexpr int WhitePerGroup = WhiteKeys / 3;
    const double white = place_.width() / WhiteKeys;
    const double left = place_.left() + (GroupOf(key) * WhitePerGroup + PlaceOf(key).Left) * white;
    if (IsBlack(key))
        return {left, place_.top(), white * BlackWidth, place_.height() * BlackHeight};
    return {left, place_.top(), white, place_.height()};
}

int PianoPlan::KeyAt(const QPointF& point) const {
    int found = -1;
    for (int key = 0; key < Keys; ++key) {
        if (KeyRect(key).contains(point) && (found == -1 || IsBlack(key)))
            found = key;
    }
    return found;
}

}  // namespace quavix
