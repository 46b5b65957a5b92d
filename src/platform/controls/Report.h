#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/HostObject.h"

namespace autonotify {

class FormHost;
class Report;

/// A text on a report. A long one flows on in its section, over as many pages as it needs.
class ReportLabel : public HostObject {
 public:
  /// Belongs to the report for life.
  ReportLabel(Report& report, std::string section, std::string name, std::string caption = {});
  ReportLabel(const ReportLabel&) = delete;
  ReportLabel& operator=(const ReportLabel&) = delete;

  const std::string& section() const { return section_; }
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { caption_ = std::move(caption); }

 private:
  std::string section_;
  std::string name_;
  std::string caption_;
};

/// What a job of a report is for.
namespace report_job {
inline constexpr int printing = 1;
inline constexpr int exporting = 2;
}  // namespace report_job

/// A job of a report that failed.
struct ReportFault {
  int jobType;
  int cookie;
  int number;
  std::string description;
  /// False: the host shows no message of its own.
  bool showsError = true;
};

/// A document that a host lays out, shows a person before it is printed, and prints: sections, one
/// below the other, of labels with texts. It has no toolkit and no layout.
///
/// Derived reports hold their labels as members.
class Report : public HostObject {
 public:
  /// Twips: 1440 to the inch.
  struct Margins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
  };

  /// `host` outlives the report. `name` is the class name, such as "drFax".
  Report(FormHost& host, std::string name, std::string caption);
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  Margins margins;

  /// In the order in which the report was made of them; not owned.
  const std::vector<ReportLabel*>& labels() const { return labels_; }
  /// The caption of the label of this name; empty when there is none.
  std::string captionOf(const std::string& label) const;

  /// The rows that it is printed for, once each: a recordset of the database, not owned.
  HostObject* dataSource() const { return dataSource_; }
  void setDataSource(HostObject* rows) { dataSource_ = rows; }

  /// Shows the preview above `owner` until it is closed. Throws PlatformError 400 when it is on
  /// show, and what the host throws; a preview that has come up by then is closed.
  void showModal(HostObject* owner);
  /// The host's, when the preview is before the person.
  void comeUp() { hasComeUp_ = true; }
  bool isShown() const { return isShown_; }
  /// Closes the preview and tells so; nothing happens when there is none.
  void unload();

  /// The host's, when a job fails. True when the host is to show a message of its own.
  bool fail(ReportFault fault);

  std::function<void(ReportFault&)> onError;
  std::function<void()> onTerminate;

 private:
  friend class ReportLabel;

  FormHost& host_;
  std::string name_;
  std::string caption_;
  std::vector<ReportLabel*> labels_;
  HostObject* dataSource_ = nullptr;
  bool isShown_ = false;
  bool hasComeUp_ = false;
};

}  // namespace autonotify
