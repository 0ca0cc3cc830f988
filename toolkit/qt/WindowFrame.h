#pragma once

#include "NativePicture.h"

#include <QMainWindow>
#include <QPoint>
#include <QTimer>

class QScrollArea;

namespace folimark {

class Window;
struct WindowLayout;

/// What the controls stand on. Whatever is drawn on the window itself lies under them.
class WindowContent : public QWidget {
  public:
    NativePicture& Underlay();
    bool HasUnderlay() const { return !underlay_.image.isNull(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    NativePicture underlay_;
};

/// The window system's side of a Window: menu bar and toolbar above a content that scrolls where the screen
/// is too small for it.
class WindowFrame : public QMainWindow {
  public:
    WindowFrame(Window& window, const WindowLayout& layout);

    WindowContent* Content() const { return content_; }

    /// Gets the window ready to be shown: its size, its limits, and how much its bars take.
    void Prepare();
    /// Gives a window that nobody has placed its place.
    void PlaceFirst();
    /// The content's place on the screen.
    QPoint ContentPosition() const;
    void PlaceContent(QPoint position);
    int ContentHeight() const;
    void SetContentHeight(int height);
    /// Lets go of the Window, which is about to end.
    void Release();

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    /// What the menu bar and the toolbar add to the content's height.
    int BarsHeight() const;
    /// What the screen has for a window without its frame.
    QRect Room() const;
    void FitToScreen();
    bool PressDialogButton(int key);

    Window* window_;
    QScrollArea* scroller_;
    WindowContent* content_;
    /// Ends a drag of the window's size: the window system reports no end of it, so a pause counts as one.
    QTimer resizeEnd_;
    QPoint wanted_;
    bool placed_ = false;
    int corrections_ = 0;
    bool resizeable_;
    bool closeButton_;
    int minHeight_;
    int maxHeight_;
};

} // namespace folimark
