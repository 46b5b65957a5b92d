// Any bytes as a template, merged with the samples of the fields and checked as an editor does: on
// a host that never fails nothing fails but the check of a field in brackets without a format, text
// stays UTF-8, a fault is told exactly when there is one.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "contract/references.h"
#include "examples/embed/one_row_database.h"
#include "fuzz/require.h"
#include "host/services/ClassRegistry.h"
#include "host/services/HeadlessFormHost.h"
#include "host/services/HostLocale.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_kinds.h"
#include "platform/text.h"

namespace {

using namespace autonotify;

class FixedDay : public Clock {
 public:
  DateTime now() override { return DateTime::of(2026, 4, 15, 9, 30); }
};

class FormatErrors : public errorClass {
 public:
  void enterProcedure(std::string_view) override {}
  void leaveProcedure() override {}
  void recordError(const PlatformError& error) override {
    require(error.number() == error_number::subscriptOutOfRange);
    isMet = true;
  }
  void showErrorDialog() override {}
  int getErrorChoice() override { return error_choice::leave; }

  bool isMet = false;
};

class ClosedDatabase : public OneRowDatabase {
 public:
  bool isDatabaseOpen() override { return false; }
};

/// What a merge without records asks of its host.
struct Host {
  Host() {
    references().platform = {&registry, &clock, &forms};
    references().errors = &errors;
    references().databaseReference = &database;
    references().localeReference = &locale;
    references().fileUtility = createHostObject<FileUtility>();
    references().generalUtilities = createHostObject<GeneralUtilities>();
    references().validationUtilities = createHostObject<ValidationUtilities>();
  }

  host::ClassRegistry registry;
  FixedDay clock;
  host::HeadlessFormHost forms;
  FormatErrors errors;
  ClosedDatabase database;
  host::HostLocale locale{{}};
};

struct Engine : clsInsertFieldsInRTB {
  Engine() {
    put_MergeFieldListUse(field_list_use::merging);
    ListType = field_list_type::task;
    bool noListBox = true;
    bool clearListBox = false;
    createDefaultFieldListStructure(noListBox, clearListBox);
    TestComment = true;
    testErrorComment = [this](const std::string&) { isFaultTold = true; };
  }

  bool isFaultTold = false;
};

void merge(Host& host, Engine& engine, const std::string& text) {
  engine.TemplateText = text;
  const std::string merged = engine.parseRTBComment();
  require(!host.errors.isMet);
  require(!isValidUtf8(text) || isValidUtf8(merged));
}

void check(Host& host, Engine& engine, const std::string& text, bool isRTF) {
  engine.isFaultTold = false;
  const bool hasFault = engine.testRTBComment(text, isRTF, true, false);
  require(host.errors.isMet || hasFault == engine.isFaultTold);
  host.errors.isMet = false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Host host;
  static Engine engine;
  const std::string text(reinterpret_cast<const char*>(data), size);
  for (const bool isRTF : {false, true}) {
    engine.ConvertStrToRTF = isRTF;
    merge(host, engine, text);
    check(host, engine, text, isRTF);
  }
  return 0;
}
