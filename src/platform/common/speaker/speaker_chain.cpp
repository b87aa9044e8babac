// SPDX-License-Identifier: MIT
#include "platform/common/speaker/speaker_chain.h"

#include <utility>

namespace quavix {
namespace {

void AddSentence(std::string& text, const std::string& sentence) {
    if (!text.empty() && !sentence.empty())
        text += ' ';
    text += sentence;
}

}  // namespace

SpeakerChain::SpeakerChain(std::deque<Maker> makers, std::string remark)
    : choice_(std::make_unique<Choice>(Choice{.Makers = std::move(makers), .Reason = std::move(remark)})) {
    choice_->TakeNext();
}

void SpeakerChain::Choice::TakeNext() {
    InUse.reset();
    Settled = false;
    while (!InUse && !Makers.empty()) {
        SpeakerAttempt attempt = Makers.front()();
        Makers.pop_front();
        AddReason(attempt.Reason, attempt.Remedy);
        InUse = std::move(attempt.Made);
    }
}

void SpeakerChain::Choice::GiveUp() {
    const SpeakerStatus failed = InUse->Status();
    AddReason(failed.Reason, failed.Remedy);
    TakeNext();
}

void SpeakerChain::Choice::AddReason(const std::string& reason, const std::string& remedy) {
    AddSentence(Reason, reason);
    // The first remedy helps the preferred speaker, so it is kept.
    if (Remedy.empty())
        Remedy = remedy;
}

PlatformSpeaker& SpeakerChain::InUse() const {
    while (!choice_->Settled) {
        choice_->InUse->Settle();
        choice_->Settled = true;
        if (choice_->InUse->Failed() && !choice_->Makers.empty())
            choice_->GiveUp();
    }
    return *choice_->InUse;
}

void SpeakerChain::Beep(std::int32_t frequency, std::int32_t durationMs) {
    PlatformSpeaker& speaker = InUse();
    speaker.Beep(frequency, durationMs);
    if (speaker.Failed() && !choice_->Makers.empty())
        choice_->GiveUp();
}

SpeakerStatus SpeakerChain::Status() const {
    SpeakerStatus status = InUse().Status();
    std::string reason = choice_->Reason;
    AddSentence(reason, status.Reason);
    status.Reason = std::move(reason);
    if (status.Remedy.empty())
        status.Remedy = choice_->Remedy;
    return status;
}

}  // namespace quavix
