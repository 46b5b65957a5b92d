#pragma once

#include <string>

#include "host/documents/PdfDocument.h"
#include "host/services/NewFile.h"

namespace autonotify::host {

/// A PDF that is there as a whole or not at all. All throw PlatformError as NewFile does.
class PdfFile {
 public:
  explicit PdfFile(const std::string& path) : file_(path) {}

  /// See PdfDocument::add.
  int add(const PrintedReport& report, const std::string& title) {
    return document_.add(report, title);
  }
  int pages() const { return document_.pages(); }
  /// False, with nothing done, when something of its name is there.
  bool publish() {
    document_.finish();
    return file_.publish();
  }

 private:
  NewFile file_;
  PdfDocument document_{[this](std::string_view bytes) { file_.write(bytes); }};
};

}  // namespace autonotify::host
