#include "commands/own_firm.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "commands/arguments.h"
#include "host/desk/work/firm_details.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

std::string takeDetail(const host::FirmDetail& detail, const std::string& text) {
  const std::string fault = host::faultOfFirmDetail(detail, text);
  if (!fault.empty()) throw CLI::ValidationError(fmt::format("--{}", detail.key), fault);
  return text;
}

}  // namespace

void describeFirm(CLI::App& command, Arguments& arguments) {
  const auto details = host::firmDetails();
  arguments.firmDetails.resize(details.size());
  for (std::size_t i = 0; i < details.size(); ++i)
    addReader(command, fmt::format("--{}", details[i].key), "TEXT",
              fmt::format("its {} from now on", lowerCase(details[i].name)),
              [&arguments, i, &detail = details[i]](const std::string& text) {
                arguments.firmDetails[i] = takeDetail(detail, text);
              });
}

Reply runFirm(host::Desk& desk, const Arguments& arguments) {
  const bool isChanged =
      std::ranges::any_of(arguments.firmDetails, [](const auto& text) { return text.has_value(); });
  if (isChanged) host::storeFirmDetails(desk, arguments.firmDetails);
  Reply reply;
  const std::vector<std::string> texts = host::readFirmDetails(desk);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const host::FirmDetail& detail = host::firmDetails()[i];
    reply.text += fmt::format("{:<16}{}\n", fmt::format("{}:", detail.name), texts[i]);
    reply.data[detail.key] = texts[i];
  }
  return reply;
}

}  // namespace autonotify::console
