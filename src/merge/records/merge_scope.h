#pragma once

#include "platform/Value.h"

namespace autonotify {

/// Whose records a merge reads. An id below 0 is not part of it.
struct MergeIds {
  Id companyID = noId;
  Id contactID = noId;
  Id firmID = noId;
  Id userID = noId;
  Id appointmentID = noId;
  Id docketId = noId;
  Id taskID = noId;
};

/// The records of one call, and what they are opened for. The ids outlive it.
struct MergeScope {
  const MergeIds& ids;
  bool isBulk = false;      ///< whole tables, in which the rows are found by the ids
  bool isUpdating = false;  ///< rows that can be written to
};

}  // namespace autonotify
