#include "wizards/documents/document_templates.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/PlatformError.h"

namespace autonotify {

// The files of these names, see autonotify_embed in cmake/AutoNotifyBuild.cmake.
extern const std::string_view fax_template;
extern const std::string_view letter_template;

namespace {

constexpr int resourceNotFound = 326;

struct DocumentTemplate {
  int number;
  std::string_view type;
  const std::string_view& bytes;
};
constexpr DocumentTemplate templates[] = {
    {101, "FAXTEMPLATE", fax_template},
    {101, "LETTERTEMPLATE", letter_template},
};

}  // namespace

std::string_view documentTemplate(int number, std::string_view type) {
  const auto found = std::ranges::find_if(templates, [&](const DocumentTemplate& row) {
    return row.number == number && row.type == type;
  });
  if (found != std::end(templates)) return found->bytes;
  const std::string name = std::to_string(number) + " of type " + std::string(type);
  throw PlatformError(resourceNotFound, "There is no template " + name);
}

}  // namespace autonotify
