#pragma once

#include <memory>
#include <string_view>

#include "platform/HostObject.h"

namespace autonotify {

/// Creates host classes by name, in any case. Each interface that the component creates itself
/// carries its name as `className`:
///
///   FileUtility, GeneralUtilities, ValidationUtilities   by every clsAutoNotifyCtrl
///   GridColumnList                                       to merge, for categories and lists
///   ItemLinksClass                                       by clsAutoNotification
///   RichTextUtility, ListCleaner                         by the composers, and for recipients
///   EmailSender                                          to send an email
///   ClientDocumentFolder, Scripting.FileSystemObject     to file a fax or a letter
///   ClientIDClass                                        for the text of categories
///   ScheduleTreeService, ProgressDialog                  by the editor of templates
class HostClassRegistry {
 public:
  virtual ~HostClassRegistry() = default;
  /// A new object of the class, owned by the caller. Throws PlatformError (429) for a name unknown.
  virtual std::unique_ptr<HostObject> create(std::string_view className) = 0;
};

}  // namespace autonotify
