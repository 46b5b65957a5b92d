#pragma once

#include <string>

#include "platform/richtext/RichText.h"

namespace autonotify::host {

/// The text as a page of HTML that looks the same in programs for mail: formats stand with what
/// they are about, and nothing is read from elsewhere.
std::string pageOf(const RichText& text);

}  // namespace autonotify::host
