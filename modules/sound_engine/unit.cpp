// SPDX-License-Identifier: MIT
#include "sound_engine/unit.h"

#include "sound_engine/filter.h"
#include "sound_engine/oscillator.h"
#include "sound_engine/sound_engine.h"

namespace quavix::sound_engine {

std::shared_ptr<Unit> MakeUnit(int type, unsigned int serial) {
    switch (type) {
        case SOUND_OSCILLATOR:
            return std::make_shared<Oscillator>(serial);
        case SOUND_LOW_PASS:
            return std::make_shared<LowPass>();
        case SOUND_EQUALISER:
            return std::make_shared<Equaliser>();
        default:
            return nullptr;
    }
}

}  // namespace quavix::sound_engine
