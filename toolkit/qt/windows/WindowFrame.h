#pragma once

#include "NativeWindow.h"

#include <QMainWindow>
#include <QPoint>
#include <QPointer>
#include <QTimer>

class QEventLoop;
class QScrollArea;

namespace folimark {

/// The window system's side of a Window: menu bar and toolbar above a content that scrolls where the screen
/// is too small for it.
class WindowFrame : public QMainWindow, public NativeWindow {
  public:
    WindowFrame(Window& window, const WindowLayout& layout);

    /// What the controls stand on.
    QWidget* Content() const { return content_; }

    void Prepare() override;
    void PlaceFirst() override;
    void BringToFront() override;
    void BuildMenus() override;
    int ContentLeft() const override { return ContentPosition().x(); }
    int ContentTop() const override { return ContentPosition().y(); }
    void PlaceContent(int left, int top) override;
    int ContentHeight() const override;
    void SetContentHeight(int height) override;
    void SetTitle(const std::string& title) override;
    void MakeModal() override;
    void WaitUntilTakenDown() override;
    void TakeDown() override;

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
    QPoint ContentPosition() const;
    void FitToScreen();
    bool PressDialogButton(int key);

    Window* window_;
    /// What WaitUntilTakenDown waits in.
    QEventLoop* modalLoop_ = nullptr;
    QScrollArea* scroller_;
    QWidget* content_;
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
