#pragma once

#include "ContentFit.h"
#include "NativeWindow.h"
#include "Window.h"

#include <QMainWindow>
#include <QPoint>
#include <QPointer>
#include <QTimer>

class QEventLoop;
class QScreen;

namespace folimark {

/// The window system's side of a Window: menu bar and toolbar above the content.
///
/// It is as large as its layout says where the screen has the room. Elsewhere the layout's slack gives way
/// first, then the window's place, and the size of all that is in it last: nothing is cut off.
class WindowFrame : public QMainWindow, public NativeWindow {
  public:
    WindowFrame(Window& window, const WindowLayout& layout);

    /// What the controls stand on.
    QWidget* Content() const { return content_; }
    /// Where a rectangle of the content, in units, lies in it, in logical pixels.
    QRect OnScreen(const QRect& units) const;
    int ContentWidth() const { return asked_.width(); }
    /// Gives the keyboard to the control that had it, if the menu bar or nobody has it and no menu is open.
    void ReturnKeyboard();
    /// The control that had the keyboard last; null if there was none.
    QWidget* LastControl() const { return control_; }
    /// A list's row in this window, in logical pixels.
    int RowPixels() const { return rowHeight_; }

    void Prepare() override;
    void PlaceFirst() override;
    void BringToFront() override;
    void BuildMenus() override;
    int ContentLeft() const override;
    int ContentTop() const override;
    void PlaceContent(int left, int top) override;
    int ContentHeight() const override { return height_; }
    void SetContentHeight(int height) override;
    void SetTitle(const std::string& title) override;
    void AddKey(const std::string& key, std::function<void()> handler) override;
    void MakeModal() override;
    void WaitUntilTakenDown() override;
    void TakeDown() override;

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    bool IsSheet() const { return layout_.frame == WindowKind::Sheet; }
    /// What the menu bar, the toolbar and a sheet's edge add to the content's size. All sizes and places from
    /// here on are in logical pixels.
    QSize Bars() const;
    /// What the screen has for a window's content.
    QRect Room() const;
    QPoint Wanted() const;
    QPoint ContentPosition() const;
    /// Sets rowHeight_ to the desktop's, or to what the content has room with.
    void ChooseRowHeight(QSize room);
    /// Gives the window the size and the place that the screen has room for.
    void Fit();
    void AskFor(QSize size, QSize own, QSize least);
    void AskForWholeRows();
    /// Brings all controls to where they belong in the content.
    void Arrange();
    void ContentResized();
    void ResizedByUser();
    void Moved();
    /// To be maximised is more than such a window can use, and it would keep its place, over the screen's
    /// edge.
    void TakeOwnSize();
    void NoteBorder();
    void WatchScreen(QScreen* screen);
    bool PressDialogButton(int key);
    /// Accepts a drag of folders, and of nothing else. \returns whether it has.
    bool AcceptFolders(QDropEvent& event) const;
    /// The keys that all windows have.
    bool RunWindowKey(const QKeyEvent& event);
    /// Gives the list a key that walks through it and has come to a button. \returns whether there is such a
    /// list.
    bool HandToList(QKeyEvent& key);
    /// The window has the keyboard again, and may have been left from its menu bar.
    void TakeKeyboard(bool comesBack);

    Window* window_;
    /// What WaitUntilTakenDown waits in.
    QEventLoop* modalLoop_ = nullptr;
    WindowLayout layout_;
    QWidget* content_;
    /// The control that had the keyboard last.
    QPointer<QWidget> control_;
    /// These end a drag of the window's size, and of the window: the window system reports no end of either,
    /// so a pause counts as one.
    QTimer resizeEnd_;
    QTimer movedEnd_;
    QMetaObject::Connection screenWatch_;
    /// Height of the content, in units.
    int height_;
    int rowHeight_ = kUnitsPerRow;
    ContentFit across_;
    ContentFit down_;
    /// The content's size that the window system was asked for last.
    QSize asked_;
    bool asking_ = false;
    /// Where the content was placed, in units, and where that brought it, in logical pixels.
    QPoint wanted_;
    QPoint place_;
    bool placed_ = false;
    int corrections_ = 0;
};

} // namespace folimark
