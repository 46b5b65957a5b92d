#pragma once

#include <map>

#include "contract/firm_rules.h"
#include "support/HostTest.h"

namespace autonotify::test {

/// What an act of a script gives for the texts that it is told.
using Act = std::function<std::string(std::vector<std::string>)>;
using Acts = std::map<std::string, Act>;

template <class Result>
std::string told(const Result& result) {
  const Value value(result);
  return value.isNull() ? "NULL" : toText(value);
}

template <class Result, class... Parameters>
Act actOf(std::function<Result(Parameters...)> call) {
  return [call](std::vector<std::string> texts) {
    texts.resize(sizeof...(Parameters));
    const auto arguments = cellsAs<std::decay_t<Parameters>...>(texts);
    if constexpr (std::is_void_v<Result>)
      return std::apply(call, arguments), std::string();
    else
      return told(std::apply(call, arguments));
  };
}
/// A call that takes what the texts say, each as a number, a flag, a moment or a text.
template <class Call>
Act act(Call call) {
  return actOf(std::function(call));
}

/// Each row of a script is an act, the texts that it takes with bars between them, and what it
/// gives.
inline void follow(const std::vector<std::vector<std::string>>& script, const Acts& acts) {
  for (const auto& row : script)
    EXPECT_EQ(acts.at(row[0])(split(row[1])), row[2]) << row[0] << " " << row[1];
}

/// Follows a script that a file lists below "[scripts]".
template <class Fixture>
class Scripted : public Fixture, public testing::WithParamInterface<std::vector<std::string>> {
 protected:
  void follow(const std::string& file) { test::follow(rowsOf(file, this->GetParam()[0], 3), acts); }

  Acts acts = {
      {"add", [this](const auto& cells) { return toText(addTold(*this, cells)); }},
      {"add all",
       act([this](std::string file, std::string table) { addAllTold(*this, file, table); })},
      {"sql", act([this](std::string sql) { this->plainDatabase->connection().exec(sql); })},
      {"rows", act([this](std::string sql) { return this->dump(sql); })},
      {"answer", act([this](int choice) { this->errors.answer({choice}); })},
      {"error", act([this] { return this->errors.recorded().back().number; })},
      {"shut", act([this] { this->closeDatabase(); })},
      {"firm", act([this](std::string code) { setFirm(code); })},
      {"fail", act([this](std::string call, int nth) { fail(this->callNumber(call, nth)); })},
      {"listen", act([this] { this->calls.reset(), this->calls.record(true); })},
      {"heard", act([this](std::string call) { return heard(call); })}};

 private:
  void setFirm(const std::string& code) {
    this->plainLocale.settings().firmCode = code == "with rules" ? firmSpecificCode : code;
  }
  void fail(int number) {
    this->calls.reset();
    this->calls.failAt(number);
  }
  std::string heard(const std::string& call) {
    std::string all;
    for (const std::string& line : this->logged(call)) all += line + ";";
    return all;
  }
};

}  // namespace autonotify::test
