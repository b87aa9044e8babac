// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <system_error>

#include "ports/files.h"

namespace quavix {

/// Opens a file whose new content is written beside it and replaces it in Commit(). If the file system
/// supports it, the new content is nameless until then, so that a killed process leaves nothing behind. After
/// an error of Commit(), the new content may already be in place, but not durable. Returns null with `error`
/// set if the file can't be written.
std::unique_ptr<FileWriter> OpenReplacedFile(const std::string& name, std::error_code& error);

}  // namespace quavix
