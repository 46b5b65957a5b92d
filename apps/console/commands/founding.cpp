#include "commands/founding.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <random>

#include "commands/arguments.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/database/postgres/PostgresRowSink.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"
#include "host/desk/databases.h"
#include "host/desk/places.h"
#include "host/services/clocks.h"

namespace autonotify::console {
namespace {

namespace fs = std::filesystem;

/// Shares of business and personal clients in the demo firm.
constexpr int companiesOfTen = 4;

std::string newIdentity() {
  std::random_device device;
  return fmt::format("{:08x}{:08x}{:08x}{:08x}", device(), device(), device(), device());
}

host::DemoOptions demoOptions(const Arguments& arguments, const host::Place& place,
                              DateTime today) {
  host::DemoOptions demo;
  demo.companies = arguments.clients * companiesOfTen / 10;
  demo.contacts = arguments.clients - demo.companies;
  demo.pastNotifications = arguments.pastNotifications;
  demo.seed = arguments.seed;
  demo.country = place.country;
  demo.province = place.province;
  demo.today = today;
  return demo;
}

host::Place placeOf(const Arguments& arguments) {
  host::Place place;
  place.country = *host::findCountry(arguments.country);
  if (!arguments.province.empty()) place.province = *host::findProvince(arguments.province);
  return place;
}

void fill(host::RowSink&& sink, const GlobalOptions& options, const Arguments& arguments) {
  const host::Place place = placeOf(arguments);
  if (arguments.demo) {
    host::SystemClock clock;
    const DateTime today = options.today ? *options.today : clock.today();
    host::makeDemoFirm(sink, demoOptions(arguments, place, today));
  } else {
    host::seedEssentials(sink,
                         {arguments.firmName, arguments.userName, place.country, place.province});
  }
  sink.insert("DatabaseIdentity", {{"UniqueText", newIdentity()}});
}

/// A file beside the wanted one, until everything is in it.
class Draft {
 public:
  explicit Draft(const fs::path& target)
      : target_(target), path_(fmt::format("{}.{}.new", target.string(), newIdentity())) {}
  ~Draft() { remove(); }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const fs::path& path() const { return path_; }
  /// Gives the file its name, which must still be free.
  void finish() const {
    std::error_code error;
    fs::create_hard_link(path_, target_, error);
    if (error) {
      throw Refusal(fmt::format("cannot make {}: {}", target_.string(), error.message()),
                    exitDatabase);
    }
  }

 private:
  void remove() const {
    std::error_code ignored;
    for (const char* ending : {"", "-wal", "-shm"}) fs::remove(path_.string() + ending, ignored);
  }

  fs::path target_;
  fs::path path_;
};

/// A country or province by its name.
template <class Find>
CLI::Option* addPlace(CLI::App& command, const std::string& name, const char* help,
                      const char* fault, std::string& target, Find find) {
  return addReader(
      command, name, "CODE", help, [&target, name, fault, find](const std::string& text) {
        if (!find(text)) {
          throw CLI::ValidationError(name, fmt::format("\"{}\" is no {}", text, fault));
        }
        target = text;
      });
}

CLI::Option* addCount(CLI::App& command, const std::string& name, const char* help, int least,
                      int greatest, int& target) {
  return addReader(command, name, "NUMBER", help,
                   [&target, name, least, greatest](const std::string& text) {
                     target = readNumber(name, text, least, greatest);
                   });
}

void makeFile(const fs::path& target, const GlobalOptions& options, const Arguments& arguments) {
  if (fs::exists(fs::symlink_status(target))) {
    throw Refusal(fmt::format("{} exists already and stays as it is", target.string()));
  }
  const Draft draft(target);
  const auto database = host::createSqlite(draft.path());
  fill(host::SqliteRowSink(database->connection()), options, arguments);
  database->emptyLog();
  database->close();
  draft.finish();
}

void makeOnServer(const GlobalOptions& options, const Arguments& arguments) {
  const auto database = host::createPostgres(options.database);
  fill(host::PostgresRowSink(database->connection()), options, arguments);
  host::finishPostgres(*database);
}

}  // namespace

void describeInit(CLI::App& command, Arguments& arguments) {
  auto* demo = command.add_flag("--demo", arguments.demo, "fill it with an invented firm");
  addCount(command, "--clients", "clients of the invented firm", 1, 100000, arguments.clients)
      ->needs(demo);
  addNumber(command, "--seed", "another seed, another firm", arguments.seed)->needs(demo);
  addCount(command, "--past-notifications", "notifications of years past, to try a large firm", 0,
           5000000, arguments.pastNotifications)
      ->needs(demo);
  addPlace(command, "--country", "ca or us", "country: ca or us", arguments.country,
           host::findCountry);
  addPlace(command, "--province", "of Canada, such as ON or QC",
           "Canadian province, such as ON or QC", arguments.province, host::findProvince);
  addText(command, "--firm", "NAME", "the firm's name", arguments.firmName)->excludes(demo);
  addText(command, "--first-user", "NAME", "who works first", arguments.userName)->excludes(demo);
}

Reply runInit(const GlobalOptions& options, const Arguments& arguments) {
  const std::string target = host::placeShown(options.database);
  if (!arguments.province.empty() && host::findCountry(arguments.country) != countryCanada)
    throw Refusal("--province does not go with --country " + arguments.country +
                      ": firms have one in Canada alone (see: hvnotify init --help)",
                  exitUsage);
  try {
    if (host::isFile(options.database))
      makeFile(options.database, options, arguments);
    else
      makeOnServer(options, arguments);
  } catch (const host::DatabaseError& error) {
    throw databaseRefusal(options.database, error);
  }
  Reply reply;
  reply.text = fmt::format("Made {}{}.\n", target,
                           arguments.demo ? fmt::format(" with {} client{}", arguments.clients,
                                                        arguments.clients == 1 ? "" : "s")
                                          : "");
  reply.data = {{"database", target}, {"demo", arguments.demo}};
  return reply;
}

}  // namespace autonotify::console
