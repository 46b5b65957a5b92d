#include "host/services/ClassRegistry.h"

#include <utility>

#include "host/services/HostClientIDClass.h"
#include "host/services/HostFileSystemObject.h"
#include "host/services/HostFileUtility.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostGridColumnList.h"
#include "host/services/HostItemLinksClass.h"
#include "host/services/HostListCleaner.h"
#include "host/services/HostProgressDialog.h"
#include "host/services/HostRichTextUtility.h"
#include "host/services/HostValidationUtilities.h"
#include "platform/PlatformError.h"
#include "platform/text.h"

namespace autonotify::host {

ClassRegistry::ClassRegistry() {
  registerClass<HostFileUtility>();
  registerClass<HostFileSystemObject>();
  registerClass<HostGeneralUtilities>();
  registerClass<HostValidationUtilities>();
  registerClass<HostGridColumnList>();
  registerClass<HostItemLinksClass>();
  registerClass<HostClientIDClass>();
  registerClass<HostListCleaner>();
  registerClass<HostProgressDialog>();
  registerClass<HostRichTextUtility>();
}

ClassRegistry::Factory ClassRegistry::registerClass(std::string_view name, Factory factory) {
  return std::exchange(factories_[lowerCase(name)], std::move(factory));
}

std::unique_ptr<HostObject> ClassRegistry::create(std::string_view className) {
  const auto found = factories_.find(lowerCase(className));
  if (found == factories_.end()) {
    throw PlatformError(error_number::cannotCreateObject, "Cannot create object",
                        std::string(className));
  }
  return found->second();
}

}  // namespace autonotify::host
