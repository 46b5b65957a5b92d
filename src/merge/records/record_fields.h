#pragma once

#include <string>

#include "contract/procedure.h"
#include "merge/records/merge_sources.h"
#include "platform/Value.h"

namespace autonotify {

/// The fields of the client's records: columns, and what is worked out from them.
///
/// Serves one procedure: every host call is a statement of it. Nothing given is owned.
class RecordFields {
 public:
  RecordFields(Step& step, MergeSources& sources, const MergeScope& scope);

  /// The value in the source's current row, not formatted; null or empty for none. A field that is
  /// worked out from others may leave one of those in `name`. Requires: the source is open.
  Value read(MergeSource source, std::string& name);
  /// True for a field that is neither worked out from others nor inherited.
  static bool isColumn(MergeSource source, const std::string& name);
  /// Writes the text into the row of the merge, saved at once; the address that a contact has of
  /// its company is changed there too. A field that is worked out from others is not written.
  void write(MergeSource source, const std::string& name, const std::string& value);

 private:
  struct DerivedField;
  struct InheritedField;
  static const DerivedField derivedFields[];
  static const InheritedField inheritedFields[];
  static const DerivedField* findDerivedField(MergeSource source, const std::string& name);
  static const InheritedField* findInheritedField(MergeSource source, const std::string& name);

  Value readColumn(MergeSource source, const std::string& column);
  void writeColumn(MergeSource source, const std::string& column, const std::string& value);

  bool isInheritingCompany();
  Value readInherited(const InheritedField& field);
  void writeInherited(MergeSource source, const std::string& name, const std::string& value);

  Value readContactAndSpouseName(MergeSource source, std::string& name);
  Value readAbbreviatedProvince(MergeSource source, std::string& name);
  Value readCompanyType(MergeSource source, std::string& name);
  Value readCodedField(MergeSource source, std::string& name);
  Value readYearEnd(MergeSource source, std::string& name);
  Value readTimeDuration(MergeSource source, std::string& name);

  Step& step_;
  MergeSources& sources_;
  MergeScope scope_;
};

}  // namespace autonotify
