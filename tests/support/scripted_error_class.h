#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "contract/errorClass.h"

namespace autonotify::test {

/// An errorClass whose person answers from a script. A question beyond the script fails the test,
/// and is answered with "leave" so that a loop of retries ends. A failure that is not recorded,
/// then shown, then asked about fails it too.
class ScriptedErrorClass : public errorClass {
 public:
  void answer(std::initializer_list<int> choices) {
    script_.insert(script_.end(), choices.begin(), choices.end());
  }
  /// What the person answers to the next `limit` questions beyond the script.
  void answerRest(int choice, int limit) {
    restChoice_ = choice;
    restLeft_ = limit;
  }

  void enterProcedure(std::string_view tag) override {
    stack_.emplace_back(tag);
    tags_.emplace_back(tag);
  }
  void leaveProcedure() override {
    ASSERT_FALSE(stack_.empty()) << "a procedure was left that was never entered";
    stack_.pop_back();
    ++left_;
  }
  void recordError(const PlatformError& error) override {
    EXPECT_EQ(asked_, std::ssize(recorded_));
    recorded_.push_back({error.number(), error.description(), stack_.empty() ? "" : stack_.back()});
  }
  void showErrorDialog() override { EXPECT_EQ(++dialogs_, std::ssize(recorded_)); }
  int getErrorChoice() override {
    EXPECT_EQ(++asked_, dialogs_);
    if (script_.empty()) {
      if (restLeft_-- > 0) return restChoice_;
      ADD_FAILURE() << "nobody expected this error: "
                    << (recorded_.empty() ? "" : recorded_.back().description) << " in "
                    << (stack_.empty() ? "" : stack_.back());
      return error_choice::leave;
    }
    const int choice = script_.front();
    script_.pop_front();
    return choice;
  }

  struct Recorded {
    int number;
    std::string description, tag;
  };
  const std::vector<Recorded>& recorded() const { return recorded_; }
  int dialogs() const { return dialogs_; }
  /// The tags of all procedures entered, in order.
  const std::vector<std::string>& tags() const { return tags_; }
  int entered() const { return static_cast<int>(tags_.size()); }
  int left() const { return left_; }
  std::size_t depth() const { return stack_.size(); }
  std::size_t answersLeft() const { return script_.size(); }

 private:
  std::vector<std::string> stack_, tags_;
  std::vector<Recorded> recorded_;
  std::deque<int> script_;
  int restChoice_ = error_choice::leave;
  int restLeft_ = 0, dialogs_ = 0, asked_ = 0, left_ = 0;
};

}  // namespace autonotify::test
