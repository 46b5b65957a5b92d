#include "contacts/clsClientAddrBkCatTxt.h"

#include <array>

#include "store/column_lookup.h"
#include "store/modItemLinks.h"

namespace autonotify {
namespace {

namespace level {
constexpr int contact = 1;
constexpr int company = 2;
constexpr int category = 3;
}  // namespace level

namespace level_item {
constexpr int type = 1;
constexpr int id = 2;
}  // namespace level_item

constexpr int mostRounds = 100;
constexpr const char* deeper = "    ";

std::string nameOf(int levelType, Id id) {
  switch (levelType) {
    case level::category:
      return clients().getCategoryName(id);
    case level::company:
      return clients().getCompanyDisplayName(id);
    default:
      return clients().getContactDisplayName(id);
  }
}

}  // namespace

clsClientAddrBkCatTxt::clsClientAddrBkCatTxt() {
  procedure("Morvane.exe-clsClientAddrBkCatTxt-Class_Initialize", [&](Step& step) {
    client_ = ClientIDClassInit();
    step.assign(chain_, [] { return createHostObject<GridColumnList>(); });
  });
}

clsClientAddrBkCatTxt::~clsClientAddrBkCatTxt() {
  endQuietly([this] { Terminate(); });
}

void clsClientAddrBkCatTxt::Terminate() {
  procedure("Morvane.exe-clsClientAddrBkCatTxt-Terminate", [&](Step& step) {
    if (client_) step.run([&] { client_->Terminate(); });
    client_.reset();
    chain_.reset();
  });
}

void clsClientAddrBkCatTxt::generateCategoryText() {
  procedure("Morvane.exe-clsClientAddrBkCatTxt-generateCategoryText", [&](Step& step) {
    CategoryText.clear();
    if (!client_ || !chain_) return;
    if (!step.value(false, [&] { return client_->get_ClientType() == enumAutoNotifyCompany; }))
      return;
    step.run([&] { chain_->clearEntries(); });
    climb(step);
    appendLines(step);
  });
}

void clsClientAddrBkCatTxt::climb(Step& step) {
  const Id companyId = step.value(noId, [&] { return client_->get_CompanyIDNum(); });
  Id categoryId = getParentCategoryIDFromCompanyIDNum(companyId);
  if (categoryId < 0) return;
  for (int round = 0; round < mostRounds; ++round) {
    categoryId = getParentCategoryIDFromCategoryNum(categoryId);
    if (categoryId < 1) return;
  }
}

Id clsClientAddrBkCatTxt::getParentCategoryIDFromCompanyIDNum(Id companyId) {
  return procedure("Morvane.exe-clsClientAddrBkCatTxt-getParentCategoryIDFromCompanyIDNum", noId,
                   [&](Step& step, Id& result) {
                     if (companyId < 0 || !isDatabaseOpen(step)) return;
                     withRow(step,
                             "SELECT Companies.CompanyID, Companies.CompanyNum, "
                             "Companies.CategoryNum FROM Companies WHERE Companies.CompanyID = ",
                             companyId, forwardRead, [&](RecordsetHandle handle) {
                               result = addLevel(step, handle, "CategoryNum", level::category);
                               addLevel(step, handle, "CompanyNum", level::company);
                             });
                   });
}

Id clsClientAddrBkCatTxt::getParentCategoryIDFromCategoryNum(Id categoryId) {
  return procedure("Morvane.exe-clsClientAddrBkCatTxt-getParentCategoryIDFromCategoryNum", noId,
                   [&](Step& step, Id& result) {
                     if (!isDatabaseOpen(step)) return;
                     withRow(step,
                             "SELECT Categories.CategoryID, Categories.CategoryNum FROM "
                             "Categories WHERE CategoryID = ",
                             categoryId, forwardRead, [&](RecordsetHandle handle) {
                               result = addLevel(step, handle, "CategoryNum", level::category);
                             });
                   });
}

/// The id in the column, which becomes an entry of the chain; -1 when there is none.
Id clsClientAddrBkCatTxt::addLevel(Step& step, RecordsetHandle handle, const char* column,
                                   int levelType) {
  const Id id = readId(step, handle, column);
  if (id < 0) return noId;
  step.run([&] {
    chain_->addEntry(chain_->getEntryCount() + 1, std::array<Value, 2>{levelType, id});
  });
  return id;
}

bool clsClientAddrBkCatTxt::isShown(Step& step, int levelType, Id id) {
  if (levelType != level::category || ShowMainAddressBookCategory) return true;
  return !step.value(false, [&] { return clients().getMainAddressBookCategoryID() == id; });
}

void clsClientAddrBkCatTxt::appendLines(Step& step) {
  std::string indent = deeper;
  step.run([&] { chain_->moveFirst(); });
  while (!step.value(true, [&] { return chain_->isAtEnd(); })) {
    const int type = step.value(0, [&] { return toInteger(chain_->getItem(level_item::type)); });
    const Id id = step.value(noId, [&] { return toInteger(chain_->getItem(level_item::id)); });
    if (id >= 0 && isShown(step, type, id)) {
      const std::string name = step.value(std::string{}, [&] { return nameOf(type, id); });
      CategoryText += indent + name + "\r\n";
      indent += deeper;
    }
    step.run([&] { chain_->moveNext(); });
  }
}

}  // namespace autonotify
