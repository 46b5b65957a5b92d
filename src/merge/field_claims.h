#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "merge/template_layout.h"

namespace autonotify {

/// A field of the list as far as a merge compares it with tokens.
struct MergeField {
  std::string foldedName;
  int index = 0;
  bool isDate = false;
};

/// A token of a template and the field that fills it.
struct FieldClaim {
  int row;             ///< of the field list, from 1; 0 for today's date
  std::size_t format;  ///< of mergeDateFormats; TemplateLayout::Reading::plain for none
  int index;           ///< the field's, for reading its value
  std::size_t token;
};

/// Which fields of a list fill which tokens of the template merged last.
class FieldClaims {
 public:
  /// The list has changed.
  void forget();
  bool knowsFields() const { return knowsFields_; }
  /// All rows of the list, in its order.
  void learnFields(std::vector<MergeField> fields);
  /// False when a name holds a mark: then tokens may overlap, and no claims can be told.
  bool canClaim() const { return canClaim_; }
  /// In the order in which a merge looks for the fields; a token goes to the first that finds it.
  /// Good until the next call.
  const std::vector<FieldClaim>& claimsOn(std::shared_ptr<const TemplateLayout> layout);

 private:
  void claim(const MergeField& field, int row, std::vector<bool>& isTaken);

  bool knowsFields_ = false;
  bool canClaim_ = false;
  std::vector<MergeField> fields_;
  std::shared_ptr<const TemplateLayout> layout_;
  std::vector<FieldClaim> claims_;
};

}  // namespace autonotify
