#include "WindowFrame.h"

#include "ClosedWidgets.h"
#include "EventGate.h"
#include "FrontFrame.h"
#include "MenuBarBuilder.h"
#include "NativeApplication.h"
#include "PlatformText.h"
#include "PushButton.h"
#include "ToolkitKey.h"
#include "Window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>

namespace folimark {
namespace {

// A pause of this many milliseconds ends a drag of the window's size.
constexpr int kResizeEndPause = 150;

// About what window managers draw around a window, in logical pixels.
constexpr int kFrameTop = 28;
constexpr int kFrameSide = 4;

// A window on a small screen is no smaller than this.
constexpr int kLeastWidth = 640;
constexpr int kLeastHeight = 360;

// Where the first window stands on the screen: windows that cascade from it have room there.
constexpr QPoint kFirstPlace(24, 24);

// How often a window that the window manager put elsewhere is moved back before its place is accepted.
constexpr int kMostCorrections = 2;

Qt::WindowFlags FlagsOf(const WindowLayout& layout) {
    if (layout.frame == WindowKind::Sheet) {
        return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    }
    Qt::WindowFlags flags =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    flags.setFlag(Qt::WindowCloseButtonHint, layout.closeButton);
    flags.setFlag(Qt::WindowMinimizeButtonHint, layout.minimizeButton);
    return flags;
}

// The tint is fixed, so the text on it and the controls' own colours have to be the ones that go with it,
// also where the desktop is dark.
QPalette PaletteOn(Color tint) {
    const QColor ground = QColor::fromRgb(static_cast<QRgb>(tint));
    QPalette palette(QColor(0xF4, 0xF4, 0xEC), ground);
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(0x6B, 0x6B, 0x60));
    }
    return palette;
}

} // namespace

std::unique_ptr<NativeWindow> MakeNativeWindow(Window& window, const WindowLayout& layout) {
    return std::make_unique<WindowFrame>(window, layout);
}

WindowFrame::WindowFrame(Window& window, const WindowLayout& layout)
    : QMainWindow(nullptr, FlagsOf(layout)), window_(&window), scroller_(new QScrollArea(this)),
      content_(new QWidget), resizeable_(layout.resizeable), closeButton_(layout.closeButton),
      minHeight_(layout.minHeight), maxHeight_(layout.maxHeight) {
    setContextMenuPolicy(Qt::NoContextMenu);
    SetTitle(std::string(layout.title));
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setFocusPolicy(Qt::NoFocus);
    content_->resize(layout.width, layout.height);
    scroller_->setWidget(content_);
    if (layout.hasBackColor) {
        scroller_->setPalette(PaletteOn(layout.backColor));
    }
    setCentralWidget(scroller_);
    resizeEnd_.setSingleShot(true);
    resizeEnd_.setInterval(kResizeEndPause);
    connect(&resizeEnd_, &QTimer::timeout, this, [this] {
        EnterApplication([this] {
            if (window_ != nullptr) {
                window_->ResizedByUser(kToolkit, true);
            }
        });
    });
}

void WindowFrame::MakeModal() {
    setWindowModality(Qt::ApplicationModal);
    RefuseToBeMinimised(*this);
    if (QWidget* front = FrontFrame(); front != nullptr && front != this) {
        winId(); // makes the window, without which there is nothing to be attached
        windowHandle()->setTransientParent(front->windowHandle());
        CentreOver(*this, *front);
    }
}

void WindowFrame::TakeDown() {
    connect(this, &QObject::destroyed, [kept = Ref<Window>(window_)] {});
    window_ = nullptr;
    resizeEnd_.stop();
    hide();
    if (modalLoop_ != nullptr) {
        modalLoop_->quit();
    }
    DeleteWhenIdle(this);
}

void WindowFrame::WaitUntilTakenDown() {
    const QPointer<WindowFrame> self(this);
    QEventLoop loop;
    modalLoop_ = &loop;
    loop.exec();
    if (self) {
        modalLoop_ = nullptr;
    }
}

void WindowFrame::BuildMenus() {
    BuildMenuBar(*window_, *this);
}

void WindowFrame::SetTitle(const std::string& title) {
    // Without one the window system would show the executable's name, and "[*]" alone would stand for a mark
    // that the window has changes.
    setWindowTitle(title.empty() ? DisplayName()
                                 : AsDisplayed(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

int WindowFrame::BarsHeight() const {
    return scroller_->mapTo(this, QPoint(0, 0)).y();
}

void WindowFrame::Prepare() {
    ensurePolished();
    layout()->activate();
    SetContentHeight(content_->height());
    if (placed_) {
        PlaceContent(wanted_.x(), wanted_.y());
    }
}

void WindowFrame::PlaceFirst() {
    if (!placed_) {
        const QPoint corner = Room().topLeft() + kFirstPlace;
        PlaceContent(corner.x(), corner.y() + BarsHeight());
    }
}

void WindowFrame::BringToFront() {
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
}

QRect WindowFrame::Room() const {
    const QScreen* screen =
        windowHandle() != nullptr ? windowHandle()->screen() : QApplication::primaryScreen();
    return screen->availableGeometry().adjusted(kFrameSide, kFrameTop, -kFrameSide, -kFrameSide);
}

void WindowFrame::FitToScreen() {
    const QRect screen = Room();
    QSize size(content_->width(), content_->height() + BarsHeight());
    // A window that the screen has room for keeps its size wherever it stands. Another one takes what is left
    // of the screen where it stands, and its content scrolls.
    if (size.width() > screen.width() || size.height() > screen.height()) {
        QSize room = screen.size();
        if (placed_) {
            const QPoint corner = wanted_ - QPoint(0, BarsHeight());
            room = QSize(screen.right() - corner.x(), screen.bottom() - corner.y())
                       .expandedTo(QSize(kLeastWidth, kLeastHeight))
                       .boundedTo(room);
        }
        // A scroll bar takes room from the other direction.
        const int bar = scroller_->verticalScrollBar()->sizeHint().width();
        const bool tooWide = size.width() > room.width();
        const bool tooHigh = size.height() + (tooWide ? bar : 0) > room.height();
        size = (size + QSize(tooHigh ? bar : 0, tooWide ? bar : 0)).boundedTo(room);
    }
    if (resizeable_) {
        setMinimumSize(size.width(), std::min(minHeight_ + BarsHeight(), size.height()));
        setMaximumSize(size.width(), std::min(maxHeight_ + BarsHeight(), QWIDGETSIZE_MAX));
        resize(size);
    } else {
        setFixedSize(size);
    }
}

QPoint WindowFrame::ContentPosition() const {
    return placed_ ? wanted_ : scroller_->mapToGlobal(QPoint(0, 0));
}

void WindowFrame::PlaceContent(int left, int top) {
    wanted_ = QPoint(left, top);
    placed_ = true;
    corrections_ = kMostCorrections;
    // The geometry is that of the window without the frame that the window manager draws around it.
    FitToScreen();
    setGeometry(QRect(wanted_ - scroller_->mapTo(this, QPoint(0, 0)), size()));
}

void WindowFrame::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    const QPoint actual = scroller_->mapToGlobal(QPoint(0, 0));
    if (!placed_ || actual == wanted_) {
        return;
    }
    if (corrections_ > 0 && isVisible()) {
        --corrections_;
        setGeometry(geometry().translated(wanted_ - actual));
        return;
    }
    placed_ = false; // The user moves it: from now on it stands where it stands.
}

int WindowFrame::ContentHeight() const {
    return content_->height();
}

void WindowFrame::SetContentHeight(int height) {
    content_->resize(content_->width(), height);
    FitToScreen();
}

void WindowFrame::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (!resizeable_ || window_ == nullptr || !isVisible()) {
        return;
    }
    const int height = size().height() - BarsHeight();
    if (height == content_->height()) {
        return;
    }
    content_->resize(content_->width(), height);
    EnterApplication([this] { window_->ResizedByUser(kToolkit, false); });
    resizeEnd_.start();
}

bool WindowFrame::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && window_ != nullptr) {
        // A window that stands where it should when it gets the keyboard isn't moved by anybody but the user.
        if (scroller_->mapToGlobal(QPoint(0, 0)) == wanted_) {
            corrections_ = 0;
        }
        NoteFrontFrame(*this);
        EnterApplication([this] { window_->ActivatedByUser(kToolkit); });
    }
    return QMainWindow::event(event);
}

void WindowFrame::closeEvent(QCloseEvent* event) {
    // The Window decides; closing it takes this widget down.
    event->ignore();
    if (window_ == nullptr) {
        return;
    }
    if (!closeButton_) {
        PressDialogButton(Qt::Key_Escape); // Some window managers close windows that ask for no such button.
        return;
    }
    const Ref<Window> window(window_);
    EnterApplication([&] { window->Close(); });
}

bool WindowFrame::PressDialogButton(int key) {
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isReturn && key != Qt::Key_Escape) {
        return false;
    }
    if (auto* focused = qobject_cast<QPushButton*>(focusWidget()); isReturn && focused != nullptr) {
        focused->click();
        return true;
    }
    for (const Ref<RectControl>& control : window_->Controls(kToolkit)) {
        const Ref<PushButton> button = control.As<PushButton>();
        if (button && (isReturn ? button->Default() : button->Cancel())) {
            button->Click(kToolkit);
            return true;
        }
    }
    return false;
}

void WindowFrame::keyPressEvent(QKeyEvent* event) {
    if (window_ == nullptr) {
        return;
    }
    const Ref<Window> window(window_);
    if (PressDialogButton(event->key())) {
        return;
    }
    bool used = false;
    // With one of these a key is a command, even where it also stands for a character: Ctrl+I is no Tab.
    if (!(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        EnterApplication([&] { used = window->KeyDownByUser(kToolkit, event->text().toStdString()); });
    }
    if (!used) {
        QMainWindow::keyPressEvent(event);
    }
}

bool WindowFrame::focusNextPrevChild(bool next) {
    bool used = false;
    // Without a key, the focus moves on from a control that has just been hidden or disabled.
    const QWidget* const focused = focusWidget();
    const bool isKey = focused == nullptr || (focused->isVisible() && focused->isEnabled());
    if (isKey && window_ != nullptr) {
        const Ref<Window> window(window_);
        EnterApplication([&] { used = window->KeyDownByUser(kToolkit, "\t"); });
        if (used) {
            repaint(); // While a key is held the queue never runs empty, and that is when widgets would be
                       // painted.
        }
    }
    return used || QMainWindow::focusNextPrevChild(next);
}

} // namespace folimark
