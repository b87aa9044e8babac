// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <system_error>

#include "platform/posix/file_descriptor.h"
#include "ports/files.h"

namespace quavix {

/// A file whose new content is written beside it and replaces it in Commit(). If the file system supports it,
/// the new content is nameless until then, so that a killed process leaves nothing behind.
class ReplacedFile : public FileWriter {
  public:
    /// Returns null with `error` set if the file can't be written.
    static std::unique_ptr<ReplacedFile> Open(const std::string& name, std::error_code& error);

    ~ReplacedFile() override;
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    std::error_code Write(std::string_view bytes) override { return file_.WriteAll(bytes); }
    /// Commits the content. After an error, the new content may already be in place, but not durable.
    std::error_code Commit() override;

  private:
    ReplacedFile(FileDescriptor folder, std::string name)
        : folder_(std::move(folder)), name_(std::move(name)) {}
    std::error_code Prepare();
    std::error_code CreateBeside();
    std::error_code Name();
    template <typename Create>
    std::error_code TakeTemporaryName(Create create);

    FileDescriptor folder_;      // all names are relative to it, so that a renamed folder does no harm
    std::string name_;           // of the file itself, links resolved
    std::string temporaryName_;  // empty while it has none
    FileDescriptor file_;
};

}  // namespace quavix
