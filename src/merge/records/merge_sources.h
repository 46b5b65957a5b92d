#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "contract/recordsets.h"
#include "merge/records/merge_scope.h"

namespace autonotify {

/// The records that merge fields read, in the order in which a field's group is looked up.
enum class MergeSource {
  clientAccounting,
  company,
  companyNotes,
  contact,
  contactNotes,
  software,
  firm,
  employee,
  appointment,
  task,
  docket,
};
inline constexpr std::size_t mergeSourceCount = 11;

/// The source with this group key.
std::optional<MergeSource> findMergeSource(std::string_view group);

/// Whether notifications of tasks read the source: those of the client and the task.
bool isReadForTasks(MergeSource source);

/// The statement for the accounting record of a client, or of all clients for an id below 0.
/// `statusMode`: 1 active clients, 2 the others, 3 all; `showOnly`: shown clients only.
std::string getMainBusinessSQLString(bool showOnly, int statusMode, Id clientDataID);

/// The open recordsets of one merge object.
///
/// A recordset stays open between merges; whether it is open only the database knows, as a handle
/// keeps its number after closing. Each holds either the one row of the merge or all rows, in which
/// the row is then found by the id. All operations are statements of the caller's frame.
class MergeSources {
 public:
  RecordsetHandle handleOf(MergeSource source) const { return at(source).handle; }

  /// Opens the one row of every id that is set, for a single document; the notes are left out.
  void openForOneDocument(Step& step, const MergeScope& scope);

  /// Opens the source for reading unless it is open. False when it is not part of this merge.
  bool openOnDemand(Step& step, const MergeScope& scope, MergeSource source);
  /// Goes to the row of the merge; False when there is none. Requires: the source is open.
  bool goToRow(Step& step, const MergeScope& scope, MergeSource source);
  /// Opens the one row for writing unless the source is open. False as for reading.
  bool openForWriting(Step& step, const MergeScope& scope, MergeSource source);

  void closeAll(Step& step);

 private:
  enum class Extent { allRows, oneRow };
  struct Recordset {
    RecordsetHandle handle = noRecordset;
    Extent extent = Extent::allRows;
    bool hasRow = false;
  };
  /// The two forms in which a statement's columns are written.
  enum class Columns { onDemand, full };

  Recordset& at(MergeSource source) { return recordsets_[static_cast<std::size_t>(source)]; }
  const Recordset& at(MergeSource source) const {
    return recordsets_[static_cast<std::size_t>(source)];
  }
  bool isOpen(Step& step, MergeSource source);

  void open(Step& step, MergeSource source, const std::string& sql, Access access, Extent extent);
  bool openOneRow(Step& step, const MergeIds& ids, MergeSource source, Columns columns,
                  Access access);
  bool openClientAccounting(Step& step, Id companyID, Access access, bool whole);
  void openSoftwareOf(Step& step, const MergeIds& ids, MergeSource owner, Access access);
  void openAllRows(Step& step, MergeSource source);
  bool openSoftwareOnDemand(Step& step, bool isBulk);

  std::array<Recordset, mergeSourceCount> recordsets_;
};

}  // namespace autonotify
