#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "platform/text.h"
#include "reference_pages.h"
#include "usage.h"

namespace autonotify::console {
namespace {

struct Word {
  std::string text;
  std::string help;
  /// An option with a value behind it.
  bool hasValue = false;
  /// Those that it may be, with blanks between, where they are known.
  std::string values = {};
};

/// What may be typed at one place: "" for the program, "/template/set" for a command below one.
struct Place {
  std::string path;
  std::vector<Word> words;
};

void addValues(const CLI::Option& argument, Place& place) {
  const std::string values = knownValues(argument);
  for (std::size_t start = 0, end = 0; start < values.size(); start = end + 1) {
    end = std::min(values.find(' ', start), values.size());
    place.words.push_back({values.substr(start, end - start), argument.get_name(true)});
  }
}

void addOptions(const CLI::App& command, Place& place) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_group().empty()) continue;
    if (option->get_positional()) addValues(*option, place);
    for (const std::string& name : option->get_lnames())
      place.words.push_back({"--" + name, option->get_description(), option->get_expected_max() > 0,
                             knownValues(*option)});
  }
}

void addPlaces(const CLI::App& command, const std::string& path, std::vector<Place>& places) {
  const std::size_t at = places.size();
  places.push_back({path, {}});
  for (const CLI::App* below : commandsOf(command)) {
    places[at].words.push_back({below->get_name(), below->get_description()});
    addPlaces(*below, path + '/' + below->get_name(), places);
  }
  addOptions(command, places[at]);
}

std::vector<Place> placesOf(const CLI::App& program) {
  std::vector<Place> places;
  addPlaces(program, "", places);
  return places;
}

/// Everything that one of `tell` gives for the places, joined.
template <class Tell>
std::string joined(const std::vector<Place>& places, const char* joint, Tell&& tell) {
  std::string text;
  for (const Place& place : places) {
    const std::string piece = tell(place);
    if (!piece.empty()) text += (text.empty() ? "" : joint) + piece;
  }
  return text;
}

std::string pathsOf(const std::vector<Place>& places) {
  return joined(places, "|", [](const Place& place) { return place.path; });
}

std::string optionsWithValue(const std::vector<Place>& places) {
  return joined(places, "|", [](const Place& place) {
    std::string names;
    for (const Word& word : place.words)
      if (word.hasValue) names += (names.empty() ? "" : "|") + word.text;
    return names;
  });
}

/// What `tell(place, word)` gives for each option whose values are known.
template <class Tell>
std::string forKnownValues(const std::vector<Place>& places, Tell&& tell) {
  return joined(places, "", [&](const Place& place) {
    std::string text;
    for (const Word& word : place.words)
      if (!word.values.empty()) text += tell(place, word);
    return text;
  });
}

/// In single quotes, for any shell.
std::string quotedForShell(const std::string& text) {
  return '\'' + replaceAll(text, "'", "'\\''") + '\'';
}

}  // namespace

std::string bashCompletion(const CLI::App& program) {
  const std::vector<Place> places = placesOf(program);
  const std::string cases = joined(places, "", [](const Place& place) {
    std::string words;
    for (const Word& word : place.words) words += (words.empty() ? "" : " ") + word.text;
    return fmt::format("    {}) words={} ;;\n", quotedForShell(place.path), quotedForShell(words));
  });
  const std::string values = forKnownValues(places, [](const Place& place, const Word& word) {
    return fmt::format("    {}) words={} ;;\n", quotedForShell(place.path + word.text),
                       quotedForShell(word.values));
  });
  return fmt::format(R"(# bash completion for {0}
_{0}() {{
  local word words before= place=
  COMPREPLY=()
  for word in "${{COMP_WORDS[@]:1:COMP_CWORD-1}}"; do
    case $before in
      {2}) before=; continue ;;
    esac
    case $place/$word in
      {1}) place+=/$word ;;
    esac
    before=$word
  done
  case $before in
    {2}) place+=$before ;;
  esac
  case $place in
{3}{4}    *) return ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "${{COMP_WORDS[COMP_CWORD]}}")
}}
complete -o bashdefault -o default -F _{0} {0}
)",
                     program.get_name(), pathsOf(places), optionsWithValue(places), cases, values);
}

std::string zshCompletion(const CLI::App& program) {
  const std::vector<Place> places = placesOf(program);
  const std::string cases = joined(places, "", [](const Place& place) {
    std::string words;
    for (const Word& word : place.words)
      words += ' ' + quotedForShell(word.text + ':' + replaceAll(word.help, ":", "\\:"));
    return fmt::format("  {}) entries=({} ) ;;\n", quotedForShell(place.path), words);
  });
  const std::string values = forKnownValues(places, [](const Place& place, const Word& word) {
    return fmt::format("  {}) entries=({}) ;;\n", quotedForShell(place.path + word.text),
                       word.values);
  });
  return fmt::format(R"(#compdef {0}
local word before= place=
local -a entries
for word in ${{words[2,CURRENT-1]}}; do
  case $before in
    {2}) before=; continue ;;
  esac
  case $place/$word in
    {1}) place+=/$word ;;
  esac
  before=$word
done
case $before in
  {2}) place+=$before ;;
esac
case $place in
{3}{4}  *) _files; return ;;
esac
_describe '{0}' entries || _files
)",
                     program.get_name(), pathsOf(places), optionsWithValue(places), cases, values);
}

std::string fishCompletion(const CLI::App& program) {
  const std::vector<Place> places = placesOf(program);
  const std::string name = program.get_name();
  const std::string lines = joined(places, "", [&](const Place& place) {
    std::string text;
    for (const Word& word : place.words) {
      const bool isOption = word.text.starts_with("--");
      const std::string typed = isOption ? "-l " + word.text.substr(2) : "-f -a " + word.text;
      const std::string values = word.values.empty() ? "" : " -f -a " + quotedForShell(word.values);
      text +=
          fmt::format("complete -c {0} -n '__{0}_at \"{1}\"' {2}{3}{4} -d {5}\n", name, place.path,
                      typed, word.hasValue ? " -r" : "", values, quotedForShell(word.help));
    }
    return text;
  });
  return fmt::format(R"(# fish completion for {0}
function __{0}_at
  set -l place ''
  set -l before ''
  for word in (commandline -opc)[2..]
    if string match -qr -- '^({3})$' "$before"
      set before ''
      continue
    end
    if string match -qr -- '^({1})$' "$place/$word"
      set place "$place/$word"
    end
    set before $word
  end
  test "$place" = "$argv[1]"
end
{2})",
                     name, pathsOf(places), lines, optionsWithValue(places));
}

}  // namespace autonotify::console
