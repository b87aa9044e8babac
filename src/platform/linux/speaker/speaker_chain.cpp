// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_chain.h"

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
    : makers_(std::move(makers)), reason_(std::move(remark)) {
    TakeNext();
}

void SpeakerChain::TakeNext() {
    speaker_.reset();
    while (!speaker_ && !makers_.empty()) {
        SpeakerAttempt attempt = makers_.front()();
        makers_.pop_front();
        AddReason(attempt.Reason, attempt.Remedy);
        speaker_ = std::move(attempt.Made);
    }
}

void SpeakerChain::AddReason(const std::string& reason, const std::string& remedy) {
    AddSentence(reason_, reason);
    // What helps the first choice helps most.
    if (remedy_.empty())
        remedy_ = remedy;
}

void SpeakerChain::Beep(std::int32_t frequency, std::int32_t durationMs) {
    speaker_->Beep(frequency, durationMs);
    if (speaker_->Failed() && !makers_.empty()) {
        const SpeakerStatus failed = speaker_->Status();
        AddReason(failed.Reason, failed.Remedy);
        TakeNext();
    }
}

SpeakerStatus SpeakerChain::Status() const {
    SpeakerStatus status = speaker_->Status();
    std::string reason = reason_;
    AddSentence(reason, status.Reason);
    status.Reason = std::move(reason);
    if (status.Remedy.empty())
        status.Remedy = remedy_;
    return status;
}

}  // namespace quavix
