// SPDX-License-Identifier: MIT
#include "platform/common/speaker/sound_card_speaker.h"

#include <utility>

#include <fmt/format.h>

namespace quavix {
namespace {

// Longest wait for the sound card at program start: enough to detect a missing card.
constexpr std::int32_t OpeningPatienceMs = 50;
constexpr std::int64_t RetryAfterNs = 2 * NsPerSecond;
// A playing card requests samples every few milliseconds.
constexpr std::int64_t LostAfterNs = NsPerSecond / 2;

}  // namespace

SoundCardSpeaker::SoundCardSpeaker(ToneClock clock) : clock_(std::move(clock)), triedNs_(clock_.Now()) {
    card_.BeginOpening();
}

void SoundCardSpeaker::Settle() {
    const std::int64_t passedMs = (clock_.Now() - triedNs_) / NsPerMs;
    if (passedMs < OpeningPatienceMs)
        card_.AwaitOpening(OpeningPatienceMs - static_cast<std::int32_t>(passedMs));
    refused_ = card_.Now().Is == SoundCard::State::Unavailable;
}

SoundCardSpeaker::~SoundCardSpeaker() {
    const auto player = card_.Now().Player;
    constexpr int MostWaits = 20;
    for (int wait = 0; player && !Lost(*player) && !player->Idle() && wait < MostWaits; ++wait)
        SleepUntil(MonotonicNs() + 5 * NsPerMs);
}

void SoundCardSpeaker::Beep(std::int32_t frequency, std::int32_t durationMs) {
    if (durationMs <= 0)
        return;
    const std::int64_t nowNs = clock_.Now();
    const std::int64_t deadlineNs = nowNs + durationMs * NsPerMs;
    const auto player = UsablePlayer(nowNs);
    if (player && CanSound(frequency))
        player->Play(frequency, durationMs, nowNs);
    clock_.WaitUntil(deadlineNs);
}

std::shared_ptr<TonePlayer> SoundCardSpeaker::UsablePlayer(std::int64_t nowNs) {
    const SoundCard::Facts card = card_.Now();
    if (card.Player && !Lost(*card.Player))
        return card.Player;
    if (card.Is != SoundCard::State::Opening && nowNs - triedNs_ >= RetryAfterNs) {
        triedNs_ = nowNs;
        card_.BeginOpening();
    }
    return nullptr;
}

bool SoundCardSpeaker::Lost(const TonePlayer& player) const {
    return clock_.Now() - player.LastRenderNs() > LostAfterNs;
}

SpeakerStatus SoundCardSpeaker::Status() const {
    const SoundCard::Facts card = card_.Now();
    if (refused_)
        return {.InUse = "silent (no sound card)",
                .Reason = fmt::format("No sound card could be opened: {}.", card.Description),
                .Silent = true};
    switch (card.Is) {
        case SoundCard::State::Open:
            if (!Lost(*card.Player))
                return {.InUse = fmt::format("sound card ({})", card.Description)};
            return {.InUse = "silent (sound card lost)",
                    .Reason = fmt::format(
                        "The sound card ({}) does not answer any more; later tones try to get it back.",
                        card.Description),
                    .Silent = true};
        case SoundCard::State::Unavailable:
            return {.InUse = "silent (no sound card)",
                    .Reason = fmt::format("The sound card could not be opened ({}); later tones try again.",
                                          card.Description),
                    .Silent = true};
        case SoundCard::State::NotOpened:
        case SoundCard::State::Opening:
            break;
    }
    return {.InUse = "sound card (not opened yet)", .Silent = true};
}

}  // namespace quavix
