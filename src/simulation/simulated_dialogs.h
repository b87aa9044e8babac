// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
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

/// A call without a scripted answer. Not a std::exception, so that no handler of the program catches it.
struct UnexpectedCall {
    std::string What;
};

/// Message boxes answered from a list. Messages with only an OK button answer themselves; a question without
/// a remaining answer raises UnexpectedCall.
class SimulatedMessageBoxes : public MessageBoxes, private Recorder {
  public:
    using Recorder::Recorder;

    BoxAnswer Show(const MessageBox& box) override;

    void AnswerNext(BoxAnswer answer) { answers_.push_back(answer); }
    /// Runs `action` while the next box is open.
    void WhileOpen(std::function<void()> action) { whileOpen_ = std::move(action); }

    /// All boxes shown so far.
    const std::vector<MessageBox>& Shown() const { return shown_; }

  private:
    std::deque<BoxAnswer> answers_;
    std::function<void()> whileOpen_;
    std::vector<MessageBox> shown_;
};

/// A file picker answered from a list; without a remaining answer it raises UnexpectedCall.
class SimulatedFilePicker : public FilePicker, private Recorder {
  public:
    using Recorder::Recorder;

    std::string AskForSaveName(const FileDialog& dialog) override { return Ask("save", dialog); }
    std::string AskForOpenName(const FileDialog& dialog) override { return Ask("open", dialog); }

    /// Adds the name that the next dialog returns; an empty one cancels it.
    void AnswerNext(std::string name) { answers_.push_back(std::move(name)); }

    const std::vector<FileDialog>& Shown() const { return shown_; }

  private:
    std::string Ask(const char* kind, const FileDialog& dialog);

    std::deque<std::string> answers_;
    std::vector<FileDialog> shown_;
};

/// A private clipboard. Texts that the program sets are written to the timeline, with "|" for line ends.
class SimulatedClipboard : public Clipboard, private Recorder {
  public:
    using Recorder::Recorder;

    void SetText(const std::string& text) override {
        std::string line = text;
        std::replace(line.begin(), line.end(), '\n', '|');
        Record("clipboard " + line);
        text_ = text;
    }
    std::string Text() override { return text_; }

    /// Sets the text as another program would.
    void Put(std::string text) { text_ = std::move(text); }

  private:
    std::string text_;
};

/// Writes the texts of the information mode to the timeline.
class RecordedLoadingView : public LoadingView, private Recorder {
  public:
    using Recorder::Recorder;

    void ShowHideInfoText(bool show) override {
        InfoShown = show;
        Record(show ? "loading shown" : "loading hidden");
    }

    void SetInfoText(const std::string& text) override {
        InfoText = text;
        Record("loading text " + text);
    }

    bool Progress(double ratio) override {
        Ratios.push_back(ratio);
        return !OnProgress || OnProgress(ratio);
    }

    bool InfoShown = false;
    std::string InfoText;
    /// All reported progress so far, 0..1.
    std::vector<double> Ratios;
    /// Called for each progress report; if it returns false, the load stops. If empty, the load goes on.
    std::function<bool(double)> OnProgress;
};

}  // namespace quavix
