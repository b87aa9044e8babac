// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ports/clipboard.h"
#include "ports/file_picker.h"
#include "ports/message_boxes.h"
#include "simulation/simulated_time.h"
#include "songfile/loading_view.h"

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

/// A clipboard of the program's own. What the program sets is written to the timeline, with "|" for the ends
/// of lines.
class SimulatedClipboard : public Clipboard {
  public:
    SimulatedClipboard(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    void SetText(const std::string& text) override {
        std::string line = text;
        for (char& c : line)
            c = c == '\n' ? '|' : c;
        timeline_.Record(time_.Now(), "clipboard " + line);
        text_ = text;
    }
    std::string Text() override { return text_; }

    /// What another program puts there.
    void Put(std::string text) { text_ = std::move(text); }

  private:
    SimulatedTime& time_;
    Timeline& timeline_;
    std::string text_;
};

/// Writes what the information mode shows to the timeline.
class RecordedLoadingView : public LoadingView {
  public:
    RecordedLoadingView(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    void ShowHideInfoText(bool show) override {
        InfoShown = show;
        timeline_.Record(time_.Now(), show ? "loading shown" : "loading hidden");
    }

    void SetInfoText(const std::string& text) override {
        InfoText = text;
        timeline_.Record(time_.Now(), "loading text " + text);
    }

    bool Progress(double ratio) override {
        Ratios.push_back(ratio);
        return !OnProgress || OnProgress(ratio);
    }

    bool InfoShown = false;
    std::string InfoText;
    /// Every progress told so far.
    std::vector<double> Ratios;
    /// Runs at every progress; false stops the load. Without it nothing does.
    std::function<bool(double)> OnProgress;

  private:
    SimulatedTime& time_;
    Timeline& timeline_;
};

}  // namespace quavix
