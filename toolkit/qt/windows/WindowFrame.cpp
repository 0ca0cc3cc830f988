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
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace folimark {
namespace {

// A pause of this many milliseconds ends a drag of the window, or of its size.
constexpr int kDragEndPause = 150;

// The line round a sheet, in logical pixels.
constexpr int kSheetEdge = 1;

Qt::WindowFlags FlagsOf(const WindowLayout& layout) {
    if (layout.frame == WindowKind::Sheet) {
        // Some window managers put all of their buttons into any title bar that they draw.
        return Qt::Dialog | Qt::FramelessWindowHint;
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
    : QMainWindow(nullptr, FlagsOf(layout)), window_(&window), layout_(layout), content_(new QWidget),
      height_(layout.height) {
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(true);
    if (IsSheet()) {
        setContentsMargins(kSheetEdge, kSheetEdge, kSheetEdge, kSheetEdge);
    }
    WindowFrame::SetTitle(std::string(layout.title));
    if (layout.hasBackColor) {
        content_->setPalette(PaletteOn(layout.backColor));
        content_->setAutoFillBackground(true);
    }
    content_->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr && qobject_cast<QMenuBar*>(now) == nullptr && now->window() == this) {
            control_ = now;
        }
    });
    setCentralWidget(content_);
    for (QTimer* pause : {&resizeEnd_, &movedEnd_}) {
        pause->setSingleShot(true);
        pause->setInterval(kDragEndPause);
    }
    connect(&movedEnd_, &QTimer::timeout, this, [this] { Moved(); });
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

void WindowFrame::ResizedByUser() {
    EnterApplication([this] { window_->ResizedByUser(kToolkit, false); });
    resizeEnd_.start();
}

void WindowFrame::TakeDown() {
    connect(this, &QObject::destroyed, [kept = Ref<Window>(window_)] {});
    window_ = nullptr;
    resizeEnd_.stop();
    movedEnd_.stop();
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

void WindowFrame::BringToFront() {
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
}

bool WindowFrame::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && window_ != nullptr) {
        NoteBorder();
        const bool comesBack =
            dynamic_cast<const WindowFrame*>(FrontFrameBefore()) != nullptr && FrontFrameBefore() != this;
        NoteFrontFrame(*this);
        TakeKeyboard(comesBack);
        EnterApplication([this] { window_->ActivatedByUser(kToolkit); });
    }
    if (event->type() == QEvent::WindowStateChange && isMaximized() && !layout_.resizeable) {
        QTimer::singleShot(0, this, [this] { TakeOwnSize(); });
    }
    if (event->type() == QEvent::ApplicationFontChange) {
        QTimer::singleShot(0, this, [this] { Prepare(); }); // once the bars have taken it
    }
    return QMainWindow::event(event);
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == content_ && event->type() == QEvent::Resize) {
        ContentResized();
    }
    if (event->type() == QEvent::KeyPress && watched != content_) {
        return HandToList(static_cast<QKeyEvent&>(*event));
    }
    return QMainWindow::eventFilter(watched, event);
}

void WindowFrame::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    AskForWholeRows();
    WatchScreen(windowHandle()->screen());
    connect(windowHandle(), &QWindow::screenChanged, this, &WindowFrame::WatchScreen, Qt::UniqueConnection);
}

void WindowFrame::WatchScreen(QScreen* screen) {
    disconnect(screenWatch_);
    if (screen != nullptr) {
        screenWatch_ = connect(screen, &QScreen::availableGeometryChanged, this, [this] { Fit(); });
    }
}

void WindowFrame::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    if (IsSheet()) {
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Disabled, QPalette::WindowText), kSheetEdge));
        painter.drawRect(rect().adjusted(0, 0, -kSheetEdge, -kSheetEdge));
    }
}

void WindowFrame::mousePressEvent(QMouseEvent* event) {
    // A sheet has no title bar to be moved by.
    if (IsSheet() && event->button() == Qt::LeftButton) {
        windowHandle()->startSystemMove();
    } else {
        QMainWindow::mousePressEvent(event);
    }
}

void WindowFrame::closeEvent(QCloseEvent* event) {
    // The Window decides; closing it takes this widget down.
    event->ignore();
    if (window_ == nullptr || !layout_.closeButton) {
        return; // Window managers have a key that closes any window.
    }
    const Ref<Window> window(window_);
    EnterApplication([&] { window->Close(); });
}

} // namespace folimark
