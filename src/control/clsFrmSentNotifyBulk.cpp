#include "control/clsFrmSentNotifyBulk.h"

#include "bulk/frmSendNotificationBulk.h"
#include "contract/tags.h"
#include "control/component_objects.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsFrmSentNotifyBulk", name>;

/// The flags are those of the window, which lives as long as this object.
class FrmSentNotifyBulk final : public clsFrmSentNotifyBulk {
 public:
  ~FrmSentNotifyBulk() override {
    endQuietly([this] { panel_.unload(); });
  }

  void Initialize(enumAutoNotifyClientType& clientTypeVar, Id companyNum, Id contactNum) override {
    procedure(tagOf<"Initialize">,
              [&](Step&) { panel_.Initialize(clientTypeVar, companyNum, contactNum); });
  }
  void showForm(bool& skipStep1) override {
    procedure(tagOf<"showForm">, [&](Step&) { panel_.showForm(skipStep1); });
  }
  void saveNotificationsTypes() override {
    procedure(tagOf<"saveNotificationsTypes">, [&](Step&) { panel_.saveNotificationsTypes(); });
  }

  bool get_cancelFlag() override { return panel_.cancelFlag; }
  void put_cancelFlag(bool value) override { panel_.cancelFlag = value; }

#define FLAG(name, place)                        \
  bool get_schedule##name() override {           \
    return panel_.choice.place;                  \
  }                                              \
  void put_schedule##name(bool value) override { \
    panel_.choice.place = value;                 \
  }
#define FAMILY(name) FLAG(name, families[static_cast<std::size_t>(TaskFamily::name)])
  FAMILY(GST)
  FAMILY(PST)
  FAMILY(PayrollRemitt)
  FAMILY(YearEnd)
  FAMILY(CorpTax)
  FAMILY(WSIB)
  FAMILY(EHT)
  FAMILY(Law)
  FAMILY(Other)
  FAMILY(EmployeePayroll)
  FAMILY(Custom)
  FAMILY(FederalPayroll)
  FAMILY(Projects)
  FAMILY(Bookkeeping)
#undef FAMILY
  FLAG(Email, channels[0])
  FLAG(Fax, channels[1])
  FLAG(Letter, channels[2])
  FLAG(Phone, channels[3])
#undef FLAG

 private:
  LibraryUse use_;
  frmSendNotificationBulk panel_;
};

}  // namespace

std::unique_ptr<ComponentObject> makeFrmSentNotifyBulk() {
  return std::make_unique<FrmSentNotifyBulk>();
}

}  // namespace autonotify
