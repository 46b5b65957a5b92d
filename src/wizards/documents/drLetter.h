#pragma once

#include "wizards/documents/DocumentReport.h"

namespace autonotify {

/// The document of a letter.
class drLetter : public DocumentReport {
 public:
  drLetter();
};

}  // namespace autonotify
