#pragma once

#include <QTextCursor>
#include <QTextDocument>

#include "platform/richtext/RichText.h"

namespace autonotify::desktop {

// Rich texts of the component and documents of the screen. Places: a document counts UTF-16 units,
// a rich text counts characters.

/// Replaces the document's content; there is nothing to undo then.
void showRichText(QTextDocument& document, const RichText& text);

/// Puts the text in place of what is selected, as one step to undo; the cursor stands behind it
/// then. The line that it begins in keeps its format unless it is empty.
void insertRichText(QTextCursor& cursor, const RichText& text);

/// The document's content, with the markers of its lists.
RichText richTextOf(const QTextDocument& document);

std::size_t placeOf(const QTextDocument& document, int position);
int positionOf(const QTextDocument& document, std::size_t place);

}  // namespace autonotify::desktop
