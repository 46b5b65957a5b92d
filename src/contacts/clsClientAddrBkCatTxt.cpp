#include "contacts/clsClientAddrBkCatTxt.h"

#include <array>

#include "contract/rows.h"
#include "contract/tags.h"
#include "store/modItemLinks.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsClientAddrBkCatTxt", name>;

namespace level {
constexpr int company = 2;
constexpr int category = 3;
}  // namespace level

namespace level_item {
constexpr int type = 1;
constexpr int id = 2;
}  // namespace level_item

constexpr int mostRounds = 100;
constexpr const char* deeper = "    ";

constexpr const char* companyWithParents =
    "SELECT Companies.CompanyID, Companies.CompanyNum, Companies.CategoryNum FROM Companies WHERE "
    "Companies.CompanyID = ";
constexpr const char* categoryWithParent =
    "SELECT Categories.CategoryID, Categories.CategoryNum FROM Categories WHERE CategoryID = ";

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
  procedure(tagOf<"Class_Initialize">, [&](Step& step) {
    client_ = ClientIDClassInit();
    step.assign(chain_, createHostObject<GridColumnList>);
  });
}

clsClientAddrBkCatTxt::~clsClientAddrBkCatTxt() {
  endQuietly([this] { Terminate(); });
}

void clsClientAddrBkCatTxt::Terminate() {
  procedure(tagOf<"Terminate">, [&](Step& step) {
    if (client_) step.run(&ClientIDClass::Terminate, client_);
    client_.reset();
    chain_.reset();
  });
}

void clsClientAddrBkCatTxt::generateCategoryText() {
  procedure(tagOf<"generateCategoryText">, [&](Step& step) {
    CategoryText.clear();
    if (!client_ || !chain_) return;
    const auto type = step.value(enumAutoNotifyNone, &ClientIDClass::get_ClientType, client_);
    if (type != enumAutoNotifyCompany) return;
    step.run(&GridColumnList::clearEntries, chain_);
    climb(step);
    appendLines(step);
  });
}

void clsClientAddrBkCatTxt::climb(Step& step) {
  const Id companyId = step.value(noId, &ClientIDClass::get_CompanyIDNum, client_);
  Id categoryId = getParentCategoryIDFromCompanyIDNum(companyId);
  if (categoryId < 0) return;
  for (int round = 0; round < mostRounds; ++round) {
    categoryId = getParentCategoryIDFromCategoryNum(categoryId);
    if (categoryId < 1) return;
  }
}

Id clsClientAddrBkCatTxt::getParentCategoryIDFromCompanyIDNum(Id companyId) {
  return procedure(tagOf<"getParentCategoryIDFromCompanyIDNum">, noId, [&](Step& step, Id& result) {
    if (companyId < 0 || !isDatabaseOpen(step)) return;
    const Rows company(step, companyWithParents, companyId, forwardRead);
    if (!company) return;
    result = addLevel(company, "CategoryNum", level::category);
    addLevel(company, "CompanyNum", level::company);
  });
}

Id clsClientAddrBkCatTxt::getParentCategoryIDFromCategoryNum(Id categoryId) {
  return procedure(tagOf<"getParentCategoryIDFromCategoryNum">, noId, [&](Step& step, Id& result) {
    if (!isDatabaseOpen(step)) return;
    const Rows category(step, categoryWithParent, categoryId, forwardRead);
    if (category) result = addLevel(category, "CategoryNum", level::category);
  });
}

/// The id in the column, which becomes an entry of the chain; -1 when there is none.
Id clsClientAddrBkCatTxt::addLevel(const Row& row, const char* column, int levelType) {
  const Id id = row.id(column);
  if (id < 0) return noId;
  row.step().run([&] {
    chain_->addEntry(chain_->getEntryCount() + 1, std::array<Value, 2>{levelType, id});
  });
  return id;
}

Id clsClientAddrBkCatTxt::item(int number) const {
  return toInteger(chain_->getItem(number));
}

bool clsClientAddrBkCatTxt::isShown(Step& step, int levelType, Id id) {
  if (levelType != level::category || ShowMainAddressBookCategory) return true;
  return !step.holds([&] { return clients().getMainAddressBookCategoryID() == id; });
}

void clsClientAddrBkCatTxt::appendLines(Step& step) {
  std::string indent = deeper;
  step.run(&GridColumnList::moveFirst, chain_);
  while (!step.value(true, &GridColumnList::isAtEnd, chain_)) {
    const int type = step.value(0, &clsClientAddrBkCatTxt::item, this, level_item::type);
    const Id id = step.value(noId, &clsClientAddrBkCatTxt::item, this, level_item::id);
    if (id >= 0 && isShown(step, type, id)) {
      CategoryText += indent + step.value(std::string{}, nameOf, type, id) + "\r\n";
      indent += deeper;
    }
    step.run(&GridColumnList::moveNext, chain_);
  }
}

}  // namespace autonotify
