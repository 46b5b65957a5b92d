#include "commands/founding.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "commands/arguments.h"
#include "host/demo/DemoFirm.h"
#include "host/desk/found_database.h"
#include "host/desk/places.h"
#include "host/services/clocks.h"

namespace autonotify::console {
namespace {

/// Shares of business and personal clients in the demo firm.
constexpr int companiesOfTen = 4;

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

void fill(host::RowSink& sink, const GlobalOptions& options, const Arguments& arguments) {
  const host::Place place = placeOf(arguments);
  if (arguments.demo) {
    host::SystemClock clock;
    const DateTime today = options.today ? *options.today : clock.today();
    host::makeDemoFirm(sink, demoOptions(arguments, place, today));
  } else {
    host::seedEssentials(sink,
                         {arguments.firmName, arguments.userName, place.country, place.province});
  }
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
    host::foundDatabase(options.database,
                        [&](host::RowSink& sink) { fill(sink, options, arguments); });
  } catch (const host::DatabaseError& error) {
    throw databaseRefusal(options.database, error);
  }
  Reply reply;
  reply.text = fmt::format("Made {}{}.\n", target,
                           arguments.demo ? fmt::format(" with {} client{}", arguments.clients,
                                                        arguments.clients == 1 ? "" : "s")
                                          : "");
  if (!arguments.demo)
    reply.text +=
        "Give it the firm's email address (hvnotify firm --email ADDRESS), and bring in staff, "
        "clients and tasks (hvnotify import FILE...).\n";
  reply.data = {{"database", target}, {"demo", arguments.demo}};
  return reply;
}

}  // namespace autonotify::console
