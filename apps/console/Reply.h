#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "host/database/dialect/DatabaseError.h"
#include "host/desk/Desk.h"
#include "host/desk/databases.h"
#include "platform/text.h"

namespace autonotify::console {

using Json = nlohmann::ordered_json;

/// Exit codes of the program.
enum ExitCode : int { exitDone = 0, exitRefused = 1, exitUsage = 2, exitDatabase = 3 };

/// What a command has to say: the same once for people and once for programs.
struct Reply {
  /// Line feeds and tabs apart, control characters do not reach the output.
  std::string text;
  /// Stands after the text and is printed as it is, unless a terminal shows it.
  std::string document;
  Json data;
  /// The data was printed as it was read.
  bool isDataPrinted = false;
  /// Things that did not work while the rest did; one line each, for standard error.
  std::vector<std::string> complaints;
  ExitCode exitCode = exitDone;

  void refuse(std::string complaint) {
    exitCode = exitRefused;
    complaints.push_back(std::move(complaint));
  }
};

/// The command ends here: one clear line for standard error and an exit code.
class Refusal : public std::runtime_error {
 public:
  explicit Refusal(const std::string& message, ExitCode code = exitRefused)
      : std::runtime_error(message), code_(code) {}
  ExitCode code() const noexcept { return code_; }

 private:
  ExitCode code_;
};

/// For a database that cannot be used, named by its file or URL. `advice` stands behind the words.
inline Refusal databaseRefusal(const std::string& place, const host::DatabaseError& error,
                               const std::string& advice = {}) {
  const std::string path = host::placeShown(place);
  const std::string words = replaceAll(host::firstLine(error.description()), place, path);
  const bool isNamed = words.find(path) != std::string::npos;
  const bool isThere = error.number() == host::database_error::alreadyExists;
  return Refusal((isNamed ? "" : path + ": ") + words + advice,
                 isThere ? exitRefused : exitDatabase);
}

}  // namespace autonotify::console
