#pragma once

#include <QKeySequence>
#include <QString>

#include <string>
#include <string_view>

namespace folimark {

QString ToQString(std::string_view text);
std::string ToText(const QString& text);
/// The text as people are to see it (see DisplayText.h): what every widget shows that may hold a name.
QString AsDisplayed(std::string_view text);

/// The text with this platform's modifier key in the place of the command sign "⌘".
QString WithPlatformKeys(std::string_view text);
/// The same, for a caption in which a "&" is to be seen as it is.
QString AsCaption(std::string_view text);
/// A help text as a tooltip that wraps and keeps its paragraphs; Chr(13) breaks a line.
QString AsToolTip(std::string_view text);
/// A name that is shown already, in part, as a tooltip that shows all of it, and wraps wherever it must.
QString AsWholeName(const QString& displayed);
/// "Cmd+" and a letter as this platform's shortcut; empty for "".
QKeySequence AsShortcut(std::string_view shortcut);

} // namespace folimark
