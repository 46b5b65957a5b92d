#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace autonotify::host {

/// What the host says to a person, in the person's language: in English as it stands until the
/// program brings another one. Texts are UTF-8. All of it from any thread.
///
/// A text is a whole sentence or a name, with "%1" to "%9" where values belong, and stands as a
/// literal at its call: tools/update_translations collects the texts there.
class Words {
 public:
  /// Gives the text in another language, with the same "%1" to "%9" in any order; the text itself
  /// where it does not know it. Called from any thread, to the end of the program.
  using Translation = std::string (*)(const char* text);

  /// What is said from now on is said through `translation`; null for English.
  static void speak(Translation translation);

  /// The text in the person's language, filled with the values. These are not translated, and what
  /// looks like "%1" in them stays. errno stays as it is: what it says may be told next.
  static std::string tr(const char* text, std::initializer_list<std::string_view> values = {});

  /// The text itself: marks it in a table from which tr() takes it later.
  static constexpr const char* later(const char* text) { return text; }
};

}  // namespace autonotify::host
