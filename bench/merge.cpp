#include <benchmark/benchmark.h>
#include <ctemplate/template.h>

#include <algorithm>
#include <stdexcept>

#include "bench/raw_rows.h"
#include "contract/references.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "store/modNotificationLinks.h"

// A letter of 1.5 kB with twelve fields: the merge, its records open, against a template engine
// that is handed the values.

namespace autonotify::bench {
namespace {

// The eight digits make each letter another one that was never seen.
constexpr std::string_view numberMark = "Our reference: ";
constexpr std::size_t numberDigits = 8;

constexpr std::string_view letter =
    R"({\rtf1\ansi\ansicpg1252\deff0\deflang1033{\fonttbl{\f0\fswiss\fcharset0 Arial;}})"
    "\r\n"
    R"(\viewkind4\uc1\pard\f0\fs20 \b \'abCompany Name\'bb\b0)"
    "\r\n"
    R"(\par \'abAddress\'bb)"
    "\r\n"
    R"(\par \'abCity\'bb)"
    "\r\n\\par\r\n"
    R"(\par \'ab(Todays Date, mmmm d, yyyy)\'bb)"
    "\r\n\\par Our reference: 00000000\r\n\\par\r\n"
    R"(\par Dear \'abContact Display Name\'bb,)"
    "\r\n\\par\r\n"
    R"(\par It is time to prepare your \b \'abTask Name\'bb\b0  for \'abPeriod Description\'bb. )"
    R"(It has to reach the authorities by \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb, which is )"
    R"(nearer than it looks: so that nobody has to wait in the last days, we plan to finish it by )"
    R"(\'ab(Task in-House Due Date, mmmm d, yyyy)\'bb. Please let us have your papers by )"
    R"(\'ab(Task Client Info Deadline Date, mmmm d, yyyy)\'bb at the latest, among them:)"
    "\r\n"
    R"(\par \bullet  the bank statements of all accounts of \'abCorporate Name\'bb;)"
    "\r\n"
    R"(\par \bullet  the invoices that you have sent and those that you have received;)"
    "\r\n"
    R"(\par \bullet  every letter from the authorities that has come since last year.)"
    "\r\n\\par\r\n"
    R"(\par Should we have questions, we call you at \'abOffice Number\'bb. Tell us if the number )"
    R"(has changed, or if somebody else should be called while you are away. You may bring the )"
    R"(papers to our office on any day of the week, or send them in the way that suits you best.)"
    "\r\n\\par\r\n"
    R"(\par If you have already sent us everything, please disregard this letter. Call us at any )"
    R"(time if you have questions: we are glad to help.)"
    "\r\n\\par\r\n"
    R"(\par Yours truly,)"
    "\r\n\\par\r\n}";

/// Everything between two fields, and the fields.
struct LetterParts {
  std::vector<std::string> texts{""};
  std::vector<std::string> fields;
};

LetterParts partsOf(std::string_view text) {
  constexpr std::string_view open = "\\'ab";
  constexpr std::string_view close = "\\'bb";
  LetterParts parts;
  std::size_t done = 0;
  for (std::size_t at; (at = text.find(open, done)) != text.npos;) {
    const std::size_t end = text.find(close, at) + close.size();
    parts.texts.back() = text.substr(done, at - done);
    parts.fields.emplace_back(text.substr(at, end - at));
    parts.texts.emplace_back();
    done = end;
  }
  parts.texts.back() = text.substr(done);
  return parts;
}

/// A merge of the letter for one entry, and what it made of each field.
class LetterMerge {
 public:
  LetterMerge(Firm& firm, Id scheduleId) : text_(letter) {
    const Id clientId =
        firm.ids("SELECT ClientNum FROM Schedule WHERE ScheduleID=" + std::to_string(scheduleId))
            .front();
    merge_.put_MergeFieldListUse(1);
    merge_.ListType = 8;
    merge_.TemplateText = text_;
    merge_.companyID = firm.clients().getCompanyIDFromClientID(clientId);
    merge_.contactID = firm.clients().getDefaultContactID(merge_.companyID);
    merge_.put_scheduleID(scheduleId);
    merge_.taskID = getTaskIDFromScheduleID(scheduleId);
    merge_.initializeDataRecordsetsForSingleDocMerge();
    readValues();
  }

  std::string merged() { return merge_.parseRTBComment(); }
  void setText(const std::string& text) { merge_.TemplateText = text; }
  const std::vector<std::string>& values() const { return values_; }
  bool isComplete() const {
    return std::none_of(values_.begin(), values_.end(),
                        [](const std::string& value) { return value.size() < 2; });
  }

 private:
  void readValues() {
    const std::string result = merged();
    const std::vector<std::string> texts = partsOf(letter).texts;
    std::size_t begin = texts.front().size();
    for (std::size_t i = 1; i < texts.size(); ++i) {
      const std::size_t end = result.find(texts[i], begin);
      if (end == result.npos) throw std::logic_error("the letter's text has changed");
      values_.push_back(result.substr(begin, end - begin));
      begin = end + texts[i].size();
    }
  }

  std::string text_;
  clsInsertFieldsInRTB merge_;
  std::vector<std::string> values_;
};

/// The merge for the first entry that fills all twelve fields.
std::unique_ptr<LetterMerge> completeMerge(Firm& firm) {
  firm.attach();
  for (const Id entry : firm.entries()) {
    auto merge = std::make_unique<LetterMerge>(firm, entry);
    if (merge->isComplete()) return merge;
  }
  throw std::logic_error("no entry fills all fields of the letter");
}

/// The same letter in the other engine's words.
class PeerLetter {
 public:
  explicit PeerLetter(std::vector<std::string> values) : values_(std::move(values)) {
    const LetterParts parts = partsOf(letter);
    for (std::size_t i = 0; i < parts.fields.size(); ++i) {
      names_.push_back("FIELD" + std::to_string(i));
      text_ += parts.texts[i] + "{{" + names_[i] + "}}";
    }
    text_ += parts.texts.back();
  }

  const std::string& text() const { return text_; }
  static std::unique_ptr<ctemplate::Template> parse(const std::string& text) {
    return std::unique_ptr<ctemplate::Template>(
        ctemplate::Template::StringToTemplate(text, ctemplate::DO_NOT_STRIP));
  }
  std::string merged(const ctemplate::Template& parsed) const {
    ctemplate::TemplateDictionary dictionary("letter");
    for (std::size_t i = 0; i < names_.size(); ++i) dictionary.SetValue(names_[i], values_[i]);
    std::string result;
    parsed.Expand(&result, &dictionary);
    return result;
  }

 private:
  std::vector<std::string> values_;
  std::vector<std::string> names_;
  std::string text_;
};

/// Counts in the digits of a text, so that it is another one each time.
class NumberedText {
 public:
  explicit NumberedText(std::string text)
      : text_(std::move(text)), at_(text_.find(numberMark) + numberMark.size()) {}

  const std::string& next() {
    unsigned number = ++lastNumber_;
    for (std::size_t i = numberDigits; i-- > 0; number /= 10)
      text_[at_ + i] = static_cast<char>('0' + number % 10);
    return text_;
  }

 private:
  std::string text_;
  std::size_t at_;
  static inline unsigned lastNumber_ = 0;
};

template <class Work>
void mergeWith(benchmark::State& state, Firms& firms, Work&& work) {
  Firm& firm = firms.inMemory();
  const std::unique_ptr<LetterMerge> merge = completeMerge(firm);
  const PeerLetter peer(merge->values());
  if (merge->merged() != peer.merged(*PeerLetter::parse(peer.text())))
    throw std::logic_error("the two letters differ");
  work(state, *merge, peer);
  firm.requireNoErrors();
}

void mergeSeen(benchmark::State& state, LetterMerge& merge, const PeerLetter&) {
  for (auto _ : state) benchmark::DoNotOptimize(merge.merged());
}

void peerSeen(benchmark::State& state, LetterMerge&, const PeerLetter& peer) {
  const auto parsed = PeerLetter::parse(peer.text());
  for (auto _ : state) benchmark::DoNotOptimize(peer.merged(*parsed));
}

void mergeNew(benchmark::State& state, LetterMerge& merge, const PeerLetter&) {
  NumberedText text{std::string(letter)};
  for (auto _ : state) {
    merge.setText(text.next());
    benchmark::DoNotOptimize(merge.merged());
  }
}

void peerNew(benchmark::State& state, LetterMerge&, const PeerLetter& peer) {
  NumberedText text(peer.text());
  for (auto _ : state) benchmark::DoNotOptimize(peer.merged(*PeerLetter::parse(text.next())));
}

/// More than are kept of those merged last.
constexpr std::size_t textsInTurn = 100;

std::vector<std::string> manyTexts(const std::string& text) {
  std::vector<std::string> texts;
  NumberedText numbered(text);
  while (texts.size() < textsInTurn) texts.push_back(numbered.next());
  return texts;
}

void mergeInTurn(benchmark::State& state, LetterMerge& merge, const PeerLetter&) {
  const std::vector<std::string> texts = manyTexts(std::string(letter));
  std::size_t next = 0;
  for (auto _ : state) {
    merge.setText(texts[next]);
    benchmark::DoNotOptimize(merge.merged());
    next = (next + 1) % texts.size();
  }
}

void peerInTurn(benchmark::State& state, LetterMerge&, const PeerLetter& peer) {
  std::vector<std::unique_ptr<ctemplate::Template>> parsed;
  for (const std::string& text : manyTexts(peer.text())) parsed.push_back(PeerLetter::parse(text));
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(peer.merged(*parsed[next]));
    next = (next + 1) % parsed.size();
  }
}

}  // namespace

void registerMerge(Firms& firms) {
  using Work = void (*)(benchmark::State&, LetterMerge&, const PeerLetter&);
  constexpr std::pair<const char*, Work> rows[] = {
      {"merge_seen/ours", mergeSeen},    {"merge_seen/floor", peerSeen},
      {"merge_new/ours", mergeNew},      {"merge_new/floor", peerNew},
      {"merge_turns/ours", mergeInTurn}, {"merge_turns/floor", peerInTurn}};
  for (const auto& [name, work] : rows)
    addBenchmark(name, [&firms, work = work](auto& state) { mergeWith(state, firms, work); });
}

}  // namespace autonotify::bench
