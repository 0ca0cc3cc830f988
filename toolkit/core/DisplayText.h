#pragma once

#include <string>
#include <string_view>

namespace folimark {

/// The text as people are to see it. Names come from anywhere, and one that holds a control character, or
/// turns the direction of its text around, could pass for another one:
///
/// - Control characters, raw or escaped as in a colon path, become their control pictures ("␊"). Tabs and
///   line ends that are no part of a name keep laying the text out.
/// - Escaped bytes that are no character become "�".
/// - Characters that steer the direction of text or end a line of it become their short names: "⟦RLO⟧".
/// - Where letters that are read from the right occur, each part of a path, and what stands in quotation
///   marks, keeps to its place.
///
/// For widgets only: it doesn't lead back to the text, and what is compared, searched or stored is the text
/// itself.
std::string ForDisplay(std::string_view text);

} // namespace folimark
