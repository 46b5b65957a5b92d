#pragma once

#include "wizards/documents/DocumentReport.h"

namespace autonotify {

/// The document of a fax.
class drFax : public DocumentReport {
 public:
  drFax();
};

}  // namespace autonotify
