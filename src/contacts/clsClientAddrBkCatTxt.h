#pragma once

#include <memory>
#include <string>

#include "contract/ClientIDClass.h"
#include "contract/GridColumnList.h"
#include "contract/rows.h"

namespace autonotify {

/// Where a company stands in the address book: the categories and the parent company above it, a
/// line each, each four blanks deeper than the one before.
///
/// The chain begins with the company's own category, then its parent company; behind them stand the
/// categories above the first, from the nearest up. Lines end in carriage return and line feed.
/// Failures are settled at the error dialog.
class clsClientAddrBkCatTxt {
 public:
  clsClientAddrBkCatTxt();
  ~clsClientAddrBkCatTxt();
  clsClientAddrBkCatTxt(const clsClientAddrBkCatTxt&) = delete;
  clsClientAddrBkCatTxt& operator=(const clsClientAddrBkCatTxt&) = delete;

  // The client; -1 for none. A company comes before a contact. After Terminate there is no client.
  Id get_CompanyIDNum() const { return client_ ? client_->get_CompanyIDNum() : noId; }
  void put_CompanyIDNum(Id value) {
    if (client_) client_->put_CompanyIDNum(value);
  }
  Id get_ContactIDNum() const { return client_ ? client_->get_ContactIDNum() : noId; }
  void put_ContactIDNum(Id value) {
    if (client_) client_->put_ContactIDNum(value);
  }

  /// True when the host's main category has a line as well.
  bool ShowMainAddressBookCategory = false;
  /// The result of generateCategoryText.
  std::string CategoryText;

  /// Fills CategoryText anew: empty for a contact, and for a company without category and parent.
  /// A chain that loops ends after 100 categories.
  void generateCategoryText();

  /// Releases the client id object and the chain.
  void Terminate();

 private:
  Id getParentCategoryIDFromCompanyIDNum(Id companyId);
  Id getParentCategoryIDFromCategoryNum(Id categoryId);
  Id addLevel(const Row& row, const char* column, int levelType);
  void climb(Step& step);
  /// An item of the chain's current entry.
  Id item(int number) const;
  bool isShown(Step& step, int levelType, Id id);
  void appendLines(Step& step);

  // Members go last first: the client before the chain, as in Terminate, also when a person left
  // that.
  std::unique_ptr<GridColumnList> chain_;
  std::unique_ptr<ClientIDClass> client_;
};

}  // namespace autonotify
