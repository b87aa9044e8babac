// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <system_error>

#include "platform/posix/file_descriptor.h"
#include "ports/files.h"

namespace quavix {

/// A file whose new content is written beside it and takes its place in Commit(). Where the file system can
/// do that, the new content has no name before, so that a process that is killed leaves nothing of it behind.
class ReplacedFile : public FileWriter {
  public:
    /// Null with `error` set when the file can't be written.
    static std::unique_ptr<ReplacedFile> Open(const std::string& name, std::error_code& error);

    ~ReplacedFile() override;
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    std::error_code Write(std::string_view bytes) override { return file_.WriteAll(bytes); }
    /// An error after which the new content may already stand in the old one's place, though not durably, is
    /// reported like the others.
    std::error_code Commit() override;

  private:
    ReplacedFile(FileDescriptor folder, std::string name)
        : folder_(std::move(folder)), name_(std::move(name)) {}
    std::error_code Prepare();
    std::error_code CreateBeside();
    std::error_code Name();
    template <typename Create>
    std::error_code TakeTemporaryName(Create create);

    FileDescriptor folder_;      // all names are relative to it, so that nothing moves it from under us
    std::string name_;           // of the file itself, links resolved
    std::string temporaryName_;  // empty while it has none
    FileDescriptor file_;
};

}  // namespace quavix
