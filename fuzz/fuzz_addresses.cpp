// Any bytes as a list of recipients: it is refused as a whole, or each address can stand in a
// header and in an envelope and reads back as itself.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "host/mail/addresses.h"
#include "platform/text.h"

namespace {

using namespace autonotify;
using namespace autonotify::host;

void check(const Mailbox& mailbox) {
  constexpr std::size_t longestAddress = 254;
  require(!mailbox.address.empty() && mailbox.address.size() <= longestAddress);
  require(
      std::ranges::all_of(mailbox.address, [](char byte) { return byte >= ' ' && byte < 0x7F; }));
  require(mailbox.address.find('@') != std::string::npos);
  require(isValidUtf8(mailbox.name));
  for (const std::string& written : {mailbox.address, "<" + mailbox.address + ">"}) {
    const std::vector<Mailbox> read = parseRecipients(written);
    require(read.size() == 1 && read.front() == Mailbox{"", mailbox.address});
  }
}

std::vector<Mailbox> readOrNone(std::string_view text) {
  try {
    return parseRecipients(text);
  } catch (const MailError&) {
    return {};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::vector<Mailbox> mailboxes = readOrNone(text);
  std::string all;
  for (const Mailbox& mailbox : mailboxes) {
    check(mailbox);
    all += mailbox.address + "; ";
  }
  const std::vector<Mailbox> again = parseRecipients(all);
  require(std::ranges::equal(mailboxes, again, {}, &Mailbox::address, &Mailbox::address));
  return 0;
}
