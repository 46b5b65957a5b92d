#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/database/RecordsetDatabase.h"
#include "host/exchange/TextFile.h"
#include "host/exchange/cell_values.h"
#include "platform/DateTime.h"

namespace autonotify::host {

struct ImportOptions {
  /// Of all files; unset: each by its name or its headings.
  const EntryKind* kind = nullptr;
  /// Headings of the files, each with the column that it stands for.
  std::vector<std::pair<std::string, std::string>> headings;
  DateOrder dates = DateOrder::monthFirst;
  /// See openEntryReader.
  DateTime today;
  /// Tells what would be done, and writes nothing.
  bool isDryRun = false;
  /// Takes what can be taken; otherwise one refused record keeps all of them out.
  bool skipRefused = false;
};

/// Neither name nor headings of a file tell what it holds.
class KindUnknown : public FileFault {
  using FileFault::FileFault;
};

/// What comes of a record.
enum class RecordFate { added, changed, same, refused };
inline constexpr std::size_t recordFateCount = 4;

struct ImportedRecord {
  const std::string& file;
  std::size_t line;
  RecordFate fate;
  /// What it is about: "Acme Ltd."
  std::string subject;
  /// What changes, or why it is refused.
  std::string words;
};

struct ImportedFile {
  std::string path;
  const EntryKind* kind = nullptr;
  /// By RecordFate.
  std::array<std::size_t, recordFateCount> counts{};
  /// Headings that no column has, and properties of cards.
  std::vector<std::string> unread;
};

struct ImportResult {
  std::vector<ImportedFile> files;
  /// False for a dry run, and when a refused record kept all out.
  bool isStored = false;
};

using ImportListener = std::function<void(const ImportedRecord& record)>;

/// Brings what the files say into the firm's database: rows that are not there are added, those
/// that are there take the values that differ, and an empty cell leaves what it finds. All of it
/// or, on any failure, nothing. A file read twice changes nothing the second time.
///
/// Files are read in the order of their kinds, so that a task finds its client. Each record is told
/// as it is read. Throws FileFault for a file that cannot be read or is of no kind; DatabaseError,
/// `locked` while another import is under way.
ImportResult importFiles(RecordsetDatabase& database, const std::vector<std::string>& paths,
                         const ImportOptions& options, const ImportListener& listener);

}  // namespace autonotify::host
