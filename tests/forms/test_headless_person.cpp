#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "support/HeadlessPerson.h"

namespace autonotify::test {
namespace {

void show(HeadlessPerson& person) {
  Form form(person, "frmSample");
  form.showModal(nullptr);
  EXPECT_FALSE(form.isVisible()) << "the program must not hang";
  form.unload();
}

TEST(Person, NothingPassesThatNobodyExpected) {
  HeadlessPerson person;
  EXPECT_NONFATAL_FAILURE(show(person), "nobody expected the window frmSample");
  person.expectWindow("frmSample", [](WindowInUse&) {});
  EXPECT_NONFATAL_FAILURE(show(person), "frmSample was left open");
  person.expectWindow("frmOther", [](WindowInUse&) {});
  EXPECT_NONFATAL_FAILURE(show(person), "nobody expected the window frmSample");
  EXPECT_NONFATAL_FAILURE(person.finish(), "frmOther never came up");

  const auto say = [&] { person.showMessage("Hello", 1, nullptr, 0, 0, 101, 0, "", 0); };
  EXPECT_NONFATAL_FAILURE(say(), "nobody expected: Hello");
  person.expectMessage("Hello", 3);
  EXPECT_NONFATAL_FAILURE(say(), "style");
  person.expectQuestion("Hello", 1, true);
  EXPECT_NONFATAL_FAILURE(say(), "isQuestion");
  person.expectMessage("Bye", 1);
  EXPECT_NONFATAL_FAILURE(person.finish(), "never said: Bye");

  const Form left(person, "frmSample");
  EXPECT_NONFATAL_FAILURE(person.finish(), "frmSample was not unloaded");
}

}  // namespace
}  // namespace autonotify::test
