#pragma once

#include "FolderItem.h"
#include "MediaStrings.h"
#include "Window.h"

#include <cstdint>
#include <string>

/// What the application's windows tell each other, and the messages that all of them show.
namespace folimark::GlobalData {

/// The folder of the album that was last created, opened or revealed, not that of any particular window.
inline Ref<FolderItem> CatalogFolder;
/// The Albums window, of which lower levels need no more than that it is a window. Set once, at start. The
/// handle is never destroyed: the process may end with the window open.
inline Ref<Window>& CatalogsWindow = *new Ref<Window>;
/// Was the last message sheet answered with its cancel button?
inline bool CancelButtonPressed = false;

/// The last accepted search, which all album windows share.
inline std::string HighlightPhrase1;
inline std::string HighlightPhrase2;
/// How the phrases are joined; the numbers of the rows in the dialog's pop-up menu.
enum HighlightJoin : std::int64_t { kFirstAlone = 0, kBoth = 1, kEither = 2, kFirstButNotSecond = 3 };
inline std::int64_t HighlightType = kFirstAlone;
/// Was the last highlight dialog left with OK?
inline bool HighlightOK = false;

/// What a message is. All but the first two bear the icon of a caution.
enum class MessageKind : std::uint8_t { Plain = 0, Note = 1, Warning = 2, Caution = 3, Question = 4 };

/// Shows a notice with one button and waits for it.
void MessageBox1(MessageKind kind, const std::string& actionCaption, const std::string& message,
                 const std::string& explanation);
/// Shows a question with two buttons and waits for one; CancelButtonPressed then tells which.
void MessageBox2(MessageKind kind, const std::string& actionCaption, const std::string& cancelCaption,
                 const std::string& message, const std::string& explanation);
/// Opens the help page in the default application for web pages, or says that it is missing.
void LaunchHelpSheet();

/// Shows what the application is and what it stands on.
void ShowAboutPanel();

} // namespace folimark::GlobalData
