#pragma once

#include <QString>

namespace quorvane {

/// Markdown without the line breaks inside Japanese sentences: a break counts as a blank, and Japanese has
/// none between its words. Breaks between other letters, and those around paragraphs, lists, tables and
/// headings, stay.
[[nodiscard]] QString WithoutBreaksInSentences(const QString& markdown);

/// The name by which links find a heading, as the usual viewers of Markdown make it: lower case, blanks as
/// "-", without punctuation.
[[nodiscard]] QString HeadingAnchor(const QString& heading);

} // namespace quorvane
