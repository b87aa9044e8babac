// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "ports/file_picker.h"
#include "ports/message_boxes.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

namespace quavix {

/// A call that the script has no answer for. No std::exception, so that no handler of the program takes it
/// for an error of its own.
struct UnexpectedCall {
    std::string What;
};

/// Message boxes answered from a list. Messages with nothing but an OK button answer themselves; a question
/// without an answer left raises UnexpectedCall.
class SimulatedMessageBoxes : public MessageBoxes {
  public:
    SimulatedMessageBoxes(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    BoxAnswer Show(const MessageBox& box) override;

    void AnswerNext(BoxAnswer answer) { answers_.push_back(answer); }
    /// Runs while the next box stands open.
    void WhileOpen(std::function<void()> action) { whileOpen_ = std::move(action); }

    /// All boxes shown so far.
    const std::vector<MessageBox>& Shown() const { return shown_; }

  private:
    SimulatedTime& time_;
    Timeline& timeline_;
    std::deque<BoxAnswer> answers_;
    std::function<void()> whileOpen_;
    std::vector<MessageBox> shown_;
};

/// A file picker answered from a list; asked without an answer left, it raises UnexpectedCall.
class SimulatedFilePicker : public FilePicker {
  public:
    SimulatedFilePicker(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    std::string AskForSaveName(const FileDialog& dialog) override { return Ask("save", dialog); }
    std::string AskForOpenName(const FileDialog& dialog) override { return Ask("open", dialog); }

    /// The name the next dialog gives; an empty one cancels it.
    void AnswerNext(std::string name) { answers_.push_back(std::move(name)); }

    const std::vector<FileDialog>& Shown() const { return shown_; }

  private:
    std::string Ask(const char* kind, const FileDialog& dialog);

    SimulatedTime& time_;
    Timeline& timeline_;
    std::deque<std::string> answers_;
    std::vector<FileDialog> shown_;
};

}  // namespace quavix
