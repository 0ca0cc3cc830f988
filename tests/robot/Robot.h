#pragma once

#include "Window.h"
#include "WindowFrame.h"

#include <QImage>
#include <QKeySequence>
#include <QWidget>

#include <functional>
#include <initializer_list>
#include <stdexcept>
#include <string>

/// Drives the real widgets as a person would, with mouse and keyboard, on a screen that exists only in
/// memory. What a person couldn't do (a control that is hidden, disabled, covered, missing, or behind a
/// dialog) raises a RobotFailure that names it. Each action returns when its events have been served.
namespace folimark::test {

class RobotFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Brings the toolkit up on a screen of 1920 by 1080 pixels, or on one of 1280 by 720 with two device pixels
/// to a logical one if the environment asks for it (FOLIMARK_TEST_SCREEN=small), at the first call in a
/// process. `argument0` is the executable's own path.
void StartRobot(char* argument0);

/// What happens with failures that come where nobody could catch them: in the events of a dialog. The
/// default ends the process.
void SetFailureHandler(std::function<void(const std::string&)> handler);
void ReportFailure(const std::string& what);

/// Serves what the window system has for us, until nothing is left.
void Settle();
/// Serves events until `fact` holds. Fails, naming `what`, if it doesn't within some seconds.
void WaitFor(const std::function<bool()>& fact, const std::string& what);

/// The open window with that title.
Ref<Window> WindowTitled(const std::string& title);
/// The title of the window that has the keyboard; "" if none has.
std::string FrontTitle();

/// Clicks a button or a toolbar's item, by its caption (without its shortcut) or its name.
void Click(const Ref<Window>& window, const std::string& button);
void ClickRow(const Ref<Window>& window, int row, bool twice = false,
              Qt::MouseButton button = Qt::LeftButton);
inline void DoubleClickRow(const Ref<Window>& window, int row) {
    ClickRow(window, row, true);
}
/// Opens the menu of a row and chooses an item.
void ChooseForRow(const Ref<Window>& window, int row, const std::string& item);
/// Clicks into the empty part of the list.
void ClickBelowRows(const Ref<Window>& window);
void ClickHeading(const Ref<Window>& window, const std::string& heading);
void DoubleClick(const Ref<Window>& window, const std::string& control);
/// Chooses a row of a pop-up menu, by its text.
void ChooseRow(const Ref<Window>& window, const std::string& popupMenu, const std::string& row);
/// The close button of the window's frame.
void CloseByFrame(const Ref<Window>& window);
/// Drags the window's lower edge, so that its content gets that height.
void DragHeight(const Ref<Window>& window, int height);

/// Keys go to the window that has the keyboard.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// The keys come one right after the other, before anything else is served.
void PressAtOnce(std::initializer_list<Qt::Key> keys);
/// Presses the key in that window, when the window that had the keyboard has just gone and nobody was told
/// who has it now.
void PressUnannounced(const Ref<Window>& window, Qt::Key key);
/// Presses a key in the menu that is open. Some window systems send such keys to its own window.
void PressInMenu(Qt::Key key);
void Type(const std::string& text);
/// Opens a menu of the front window and chooses an item, by their texts.
void Choose(const std::string& menu, const std::string& item);
/// As `Choose`, but the menu closes while the click is on its way to it.
void ChooseTooLate(const std::string& menu, const std::string& item);
/// Presses the key while the menu of the front window is open, and that closes with the key on its way to it.
void PressTooLate(const std::string& menu, Qt::Key key);
/// The items of a menu of the front window that could be chosen, without separators, joined by ", ".
std::string EnabledItems(const std::string& menu);
/// The front window with the menu open.
QImage PictureOfMenu(const std::string& menu);

/// The widget of an open window, for its looks. Nothing is done to it here.
WindowFrame& FrameOf(const Ref<Window>& window);
/// The widget of a control, for its looks. Nothing is done to it here.
QWidget& WidgetOf(const Ref<Window>& window, const std::string& control);
/// The colour (opaque) of a picture of a widget at a place in logical pixels.
QRgb ColorAt(const QImage& picture, int x, int y);
/// The whole window, as it looks.
QImage PictureOf(const Ref<Window>& window);

/// For what the robot is made of: a button of a dialog, a place in a widget.
void ClickButtonOf(QWidget& dialog, const std::string& button);
void ClickAt(QWidget& widget, QPoint place, bool twice = false, Qt::MouseButton button = Qt::LeftButton);
/// A caption as a person reads it: without the mark of its mnemonic, and without its shortcut.
QString Read(QString caption);
/// If no window has the keyboard, because the one that had it has closed, the one before gets it, as a window
/// manager does it.
void GiveKeyboardToSomebody();

} // namespace folimark::test
