#include "contract/rich_texts.h"

#include "contract/RichTextUtility.h"
#include "contract/references.h"

namespace autonotify {

Value insertTextAt(Step& step, RichTextBox* box, const std::string& text, int position) {
  std::unique_ptr<RichTextUtility> utility;
  step.assign(utility, [] { return createHostObject<RichTextUtility>(); });
  if (!utility) return {};
  step.run([&] { utility->put_errorClass(references().errors); });
  step.run([&] { utility->put_LocaleReference(&locale()); });
  const Value result =
      step.value(Value{}, [&] { return utility->insertTextAt(box, text, position); });
  step.run([&] { utility->release(); });
  return result;
}

}  // namespace autonotify
