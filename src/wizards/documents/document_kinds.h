#pragma once

#include <span>
#include <string>

#include "contract/rows.h"

namespace autonotify {

/// A text of a document: the label that shows it, and its name between « and » in the template of
/// the document that is filed.
struct DocumentPart {
  const char* section;
  const char* label;
  const char* placeholder;
  /// The text for the row that the document is about, in statements of the row's frame.
  std::string (*read)(const Row& row, const char* column);
  const char* column = nullptr;
};

/// What one document differs in from the other.
struct DocumentKind {
  const char* name;
  /// Begins the names of its files; also the preview's caption.
  const char* word;
  const char* saveProcedure;
  const char* templateType;
  /// The window that goes when the preview is closed.
  const char* composer;
  /// Whether a row is deleted whatever its id; otherwise an id below 0 is left alone.
  bool deletesAnyId;
  /// Whether the pointer is set back before the list is shown again.
  bool resetsPointer;
  /// In the order in which they are read and put into the template.
  std::span<const DocumentPart> parts;
};

}  // namespace autonotify
