#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "contract/HostClassRegistry.h"

namespace autonotify::host {

/// The host classes that the component may create, by name in any case.
///
/// A new registry knows FileUtility, Scripting.FileSystemObject, GeneralUtilities,
/// ValidationUtilities, GridColumnList, ItemLinksClass, ClientIDClass, ListCleaner, RichTextUtility
/// and ProgressDialog, which shows nothing; a program registers what else it offers, such as
/// EmailSender.
class ClassRegistry : public HostClassRegistry {
 public:
  using Factory = std::function<std::unique_ptr<HostObject>()>;

  ClassRegistry();

  /// Replaces the factory that the name had before, and gives that.
  Factory registerClass(std::string_view name, Factory factory);
  /// Registers `Class` under its interface's name.
  template <class Class>
  void registerClass() {
    registerClass(Class::className, [] { return std::make_unique<Class>(); });
  }

  std::unique_ptr<HostObject> create(std::string_view className) override;

 private:
  std::map<std::string, Factory, std::less<>> factories_;
};

}  // namespace autonotify::host
