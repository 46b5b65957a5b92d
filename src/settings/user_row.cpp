#include "settings/user_row.h"

namespace autonotify {

void addUserRow(Step& step, RecordsetHandle handle, Id userId) {
  step.run([&] { database().addNewRecord(handle); });
  step.run([&] { database().setFieldValue(handle, "UserIDNum", std::to_string(userId)); });
  step.run([&] { database().saveNewRecord(handle); });
}

}  // namespace autonotify
