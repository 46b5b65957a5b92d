#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/code_pages.h"
#include "platform/richtext/RichText.h"
#include "platform/rtf_reader.h"

namespace autonotify {

/// The words in force on characters. Small and without memory of its own, since every group keeps
/// one; fonts and colours are numbers of the document's tables.
struct RtfCharacterFormat {
  static constexpr int documentFont = -1;

  int font = documentFont;
  int color = 0;
  int background = 0;
  std::uint16_t halfPoints = 24;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike = false;
  Script script = Script::normal;

  bool operator==(const RtfCharacterFormat&) const = default;
};

/// The words in force on a paragraph.
struct RtfParagraphFormat {
  Alignment alignment = Alignment::left;
  int leftIndent = 0;
  int rightIndent = 0;
  int firstLineIndent = 0;
  int spaceBefore = 0;
  int spaceAfter = 0;
  /// Of the chain that RtfParser::tabStopsOf knows; -1 for none.
  int lastTabStop = -1;
};

struct RtfFormat {
  RtfCharacterFormat characters;
  RtfParagraphFormat paragraph;
};

/// What a reader of the document would see, in its order.
class RtfContent {
 public:
  virtual void onText(std::string_view utf8, const RtfFormat& format) = 0;
  virtual void onParagraphEnd(const RtfFormat& format) = 0;
  /// At the start of a list entry, without its tab; not empty.
  virtual void onListMarker(std::string_view utf8) = 0;
  /// Once, behind everything else. `format` is what held when the document was closed.
  virtual void onEnd(const RtfFormat& format) = 0;

 protected:
  ~RtfContent() = default;
};

/// Follows the tokens of an RTF text: groups, destinations, code pages, fonts and colours. One
/// parser reads one text. Time is linear in the size, whatever the nesting.
class RtfParser {
 public:
  explicit RtfParser(RtfContent& content) : content_(content) {}

  void parse(std::string_view rtf);

  // For use while the text is parsed: what the numbers of a format mean.

  /// Empty for a font without a name.
  std::string_view fontName(int font) const;
  std::optional<RichTextColor> colorOf(int color) const;
  /// Number 0 is none, whatever colour the table has for it.
  std::optional<RichTextColor> backgroundOf(int color) const;
  std::vector<TabStop> tabStopsOf(const RtfParagraphFormat& format) const;

 private:
  struct Keyword {
    std::string_view name;
    void (RtfParser::*act)(const RtfToken&, std::string_view text);
    std::string_view text = {};
  };
  static const Keyword keywords[];
  class KeywordIndex;
  static const Keyword* keywordNamed(std::string_view name);
  static bool isDestination(std::string_view name);

  enum class Destination : std::uint8_t {
    body,
    listMarker,
    fontTable,
    colorTable,
    skipped,
    /// Behind `\*`: the name that comes next decides.
    optional
  };

  /// What a group inherits and gives back at its end.
  struct State {
    Destination destination = Destination::body;
    bool hidden = false;
    std::uint8_t fallbackLength = 1;
    CodePageIndex codePage = codePage1252;
    RtfFormat format;
  };

  struct Font {
    std::string name;
    bool hasName = false;
    bool isSymbol = false;
    std::optional<CodePageIndex> codePage;
  };

  struct TabStopLink {
    int previous;
    int count;
    TabStop stop;
  };

  void handle(const RtfToken& token);
  void handleSymbol(char symbol);
  void startGroup();
  void endGroup();
  void enterOptional(const RtfToken& token);
  bool isBeforeDestination(std::string_view text) const;
  bool takeFallback(const RtfToken& token);
  void finish();

  // Actions of the keywords.
  void insert(const RtfToken&, std::string_view text) { put(text); }
  void endParagraph(const RtfToken&, std::string_view);
  void endRow(const RtfToken&, std::string_view);
  void endCell(const RtfToken&, std::string_view);
  template <Destination destination>
  void enter(const RtfToken&, std::string_view);
  void setHidden(const RtfToken& word, std::string_view);
  void setPlain(const RtfToken&, std::string_view);
  void setDocumentCodePage(const RtfToken& word, std::string_view);
  template <int number>
  void setFixedCodePage(const RtfToken&, std::string_view);
  void setDocumentFont(const RtfToken& word, std::string_view);
  void setFont(const RtfToken& word, std::string_view);
  void setFontCharacterSet(const RtfToken& word, std::string_view);
  void setFontCodePage(const RtfToken& word, std::string_view);
  void setFallbackLength(const RtfToken& word, std::string_view);
  void unicode(const RtfToken& word, std::string_view);
  void setSize(const RtfToken& word, std::string_view);
  template <bool RtfCharacterFormat::*flag>
  void setFlag(const RtfToken& word, std::string_view);
  void endUnderline(const RtfToken&, std::string_view);
  template <Script script>
  void setScript(const RtfToken& word, std::string_view);
  template <int RtfCharacterFormat::*color>
  void setColor(const RtfToken& word, std::string_view);
  template <int byte>
  void setColorPart(const RtfToken& word, std::string_view);
  template <Alignment alignment>
  void align(const RtfToken&, std::string_view);
  template <int RtfParagraphFormat::*measure>
  void setMeasure(const RtfToken& word, std::string_view);
  void setPlainParagraph(const RtfToken&, std::string_view);
  template <TabAlignment alignment>
  void alignTab(const RtfToken&, std::string_view);
  void addTabStop(const RtfToken& word, std::string_view);

  bool isSkipping() const { return state_.destination >= Destination::skipped; }
  bool isBodyVisible() const { return state_.destination == Destination::body && !state_.hidden; }
  const Font* fontNumbered(int font) const;
  CodePageIndex codePageOf(int font) const;
  void put(std::string_view utf8);
  void putCharacter(char32_t character);
  void putBytes(std::string_view bytes);
  void putByte(unsigned char byte);
  void putInBody(std::string_view utf8);
  void putFontName(std::string_view utf8);
  void putColorEnds(std::string_view utf8);
  void putListMarker(bool isSymbol);
  void flushHalf();
  void flushCell();

  RtfContent& content_;
  RtfReader reader_{{}};
  State state_;
  std::vector<State> outer_;
  /// The formats that held when the outermost group was closed.
  RtfFormat lastFormat_;
  CodePageIndex documentCodePage_ = codePage1252;
  int documentFont_ = 0;
  std::unordered_map<int, Font> fonts_;
  int fontInTable_ = 0;
  std::vector<std::optional<RichTextColor>> colors_;
  std::optional<RichTextColor> nextColor_;
  std::vector<TabStopLink> tabStops_;
  TabAlignment nextTabAlignment_ = TabAlignment::left;
  std::string listMarker_;
  bool atGroupStart_ = false;
  bool atParagraphStart_ = true;
  /// Characters still to be passed over, since a `\u` has said the same already.
  int fallbackLeft_ = 0;
  /// The first half of a surrogate pair that waits for the second; 0 when none does.
  char32_t highSurrogate_ = 0;
  /// The same for the first byte of a pair.
  unsigned char firstByte_ = 0;
  /// A cell has ended: its tab comes with the next text, unless the row ends as well.
  bool cellEnded_ = false;
};

}  // namespace autonotify
