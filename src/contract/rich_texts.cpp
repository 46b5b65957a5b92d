#include "contract/rich_texts.h"

#include "contract/RichTextUtility.h"
#include "contract/references.h"

namespace autonotify {

Value insertTextAt(Step& step, RichTextBox* box, const std::string& text, int position) {
  std::unique_ptr<RichTextUtility> utility;
  step.assign(utility, createHostObject<RichTextUtility>);
  if (!utility) return {};
  step.run(&RichTextUtility::put_errorClass, *utility, references().errors);
  step.run([&] { utility->put_LocaleReference(&locale()); });
  const Value result =
      step.value(Value{}, &RichTextUtility::insertTextAt, *utility, box, text, position);
  step.run(&RichTextUtility::release, *utility);
  return result;
}

}  // namespace autonotify
