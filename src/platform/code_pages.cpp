#include "platform/code_pages.h"

#include <cstddef>

#include "platform/code_page_tables.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

/// Other numbers of the same pages, as far as texts can tell.
struct Alias {
  int number;
  int codePage;
};
constexpr Alias codePageAliases[] = {{10001, 932}, {10002, 950}, {10003, 949}, {10008, 936}};
constexpr Alias characterSets[] = {{0, 1252},   {77, 10000}, {78, 932},   {79, 949},   {80, 936},
                                   {81, 950},   {85, 10006}, {86, 10081}, {88, 10029}, {89, 10007},
                                   {128, 932},  {129, 949},  {134, 936},  {136, 950},  {161, 1253},
                                   {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
                                   {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
constexpr unsigned char firstRow = 0x81;

/// nullptr for a number that is none of the rows'.
template <class Row, std::size_t size>
const Row* find(const Row (&rows)[size], int number) {
  for (const Row& row : rows)
    if (row.number == number) return &row;
  return nullptr;
}

}  // namespace

CodePageIndex codePageIndexOf(int number) {
  const Alias* const alias = find(codePageAliases, number);
  const CodePage* const page = find(codePages, alias ? alias->codePage : number);
  return page ? static_cast<CodePageIndex>(page - codePages) : codePage1252;
}

std::optional<CodePageIndex> codePageIndexOfCharacterSet(int characterSet) {
  const Alias* const set = find(characterSets, characterSet);
  return set ? std::optional(codePageIndexOf(set->codePage)) : std::nullopt;
}

char32_t characterOf(unsigned char byte, CodePageIndex page) {
  return byte < 0x80 ? byte : codePages[page].upperHalf[byte - 0x80];
}

char32_t characterOf(unsigned char first, unsigned char second, CodePageIndex page) {
  const CodePageRow* const rows = codePages[page].rows;
  if (!rows || characterOf(first, page) != firstOfPair) return replacementCharacter;
  const CodePageRow& row = rows[first - firstRow];
  const std::size_t at = static_cast<std::size_t>(second) - row.first;
  return at < row.characters.size() ? row.characters[at] : replacementCharacter;
}

}  // namespace autonotify
