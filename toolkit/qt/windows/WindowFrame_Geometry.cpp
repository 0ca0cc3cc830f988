#include "FontMeasure.h"
#include "RectControl.h"
#include "ToolkitKey.h"
#include "Window.h"
#include "WindowFrame.h"

#include <QApplication>
#include <QLayout>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace folimark {
namespace {

// About what window managers draw around a window, in logical pixels, as long as none has told.
constexpr QMargins kUsualBorder(4, 28, 4, 4);

// Where the first window stands on the screen: windows that cascade from it have room there.
constexpr QPoint kFirstPlace(24, 24);

// How often a window that the window manager put elsewhere is moved back before its place is accepted.
constexpr int kMostCorrections = 2;

// Rows aren't made lower than this, in logical pixels, however small the screen is.
constexpr int kLeastRow = 8;

/// What the window manager has drawn around a window of ours.
QMargins& Border() {
    static QMargins border = kUsualBorder;
    return border;
}

QSize Least(const WindowLayout& layout, int height, int rowHeight, int turns = Slack::kTurns) {
    return {ContentFit::Least(layout.width, layout.slackAcross, rowHeight, turns),
            ContentFit::Least(height, layout.slackDown, rowHeight, turns)};
}

bool Holds(QSize room, QSize size) {
    return size.width() <= room.width() && size.height() <= room.height();
}

} // namespace

QSize WindowFrame::Bars() const {
    const QMargins edge = contentsMargins();
    return {edge.left() + edge.right(), content_->mapTo(this, QPoint(0, 0)).y() + edge.bottom()};
}

QRect WindowFrame::Room() const {
    const QScreen* screen = placed_ ? QApplication::screenAt(Wanted()) : nullptr;
    if (screen == nullptr) {
        screen = windowHandle() != nullptr ? windowHandle()->screen() : QApplication::primaryScreen();
    }
    const QMargins bars(0, Bars().height(), 0, 0);
    return screen->availableGeometry().marginsRemoved(Border() + bars);
}

QRect WindowFrame::OnScreen(const QRect& units) const {
    const QPoint from(across_.Pixels(units.x()), down_.Pixels(units.y()));
    const QPoint to(across_.Pixels(units.x() + units.width()), down_.Pixels(units.y() + units.height()));
    return {from, QSize(to.x() - from.x(), to.y() - from.y())};
}

QPoint WindowFrame::Wanted() const {
    return {PixelsOf(wanted_.x(), RowHeight()), PixelsOf(wanted_.y(), RowHeight())};
}

QPoint WindowFrame::ContentPosition() const {
    return content_->mapToGlobal(QPoint(0, 0));
}

int WindowFrame::ContentLeft() const {
    return placed_ ? wanted_.x() : UnitsOf(ContentPosition().x(), RowHeight());
}

int WindowFrame::ContentTop() const {
    return placed_ ? wanted_.y() : UnitsOf(ContentPosition().y(), RowHeight());
}

void WindowFrame::Prepare() {
    ensurePolished();
    Fit(); // This tells the bars how large their pictures are.
    layout()->activate();
    Fit();
}

void WindowFrame::PlaceFirst() {
    if (!placed_) {
        const QPoint corner = Room().topLeft() + kFirstPlace;
        PlaceContent(UnitsOf(corner.x(), RowHeight()), UnitsOf(corner.y(), RowHeight()));
    }
}

void WindowFrame::PlaceContent(int left, int top) {
    wanted_ = QPoint(left, top);
    placed_ = true;
    Fit();
}

void WindowFrame::SetContentHeight(int height) {
    height_ = height;
    Fit();
}

void WindowFrame::ChooseRowHeight(QSize room) {
    rowHeight_ = RowHeight();
    // Where not even the least that the content asks for has room, all of it gets smaller, the text too.
    while (rowHeight_ > kLeastRow && !Holds(room, Least(layout_, height_, rowHeight_))) {
        --rowHeight_;
    }
    const QFont font = rowHeight_ == RowHeight() ? QFont() : FontForRows(rowHeight_);
    content_->setFont(font);
    for (QWidget* bar : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (bar->inherits("QToolBar")) {
            bar->setFont(font);
        }
    }
}

void WindowFrame::Fit() {
    QRect room = Room();
    ChooseRowHeight(room.size());
    const QSize own(PixelsOf(layout_.width, rowHeight_), PixelsOf(height_, rowHeight_));
    const QSize least = Least(layout_, height_, rowHeight_);
    if (!placed_) {
        AskFor(own.boundedTo(room.size()), own, least);
        return;
    }
    // It keeps its place, and gives way to the screen's edges, for as long as the first turn of its slack
    // will do. Beyond that it takes the room that the screen has for it elsewhere, and then its other turns.
    const QPoint wanted = Wanted();
    const QSize rest(room.right() + 1 - wanted.x(), room.bottom() + 1 - wanted.y());
    const QSize size =
        own.boundedTo(rest.expandedTo(Least(layout_, height_, rowHeight_, 1)).boundedTo(room.size()))
            .expandedTo(least);
    AskFor(size, own, least);
    const QPoint last(room.right() + 1 - asked_.width(), room.bottom() + 1 - asked_.height());
    place_ = QPoint(std::clamp(wanted.x(), room.left(), std::max(room.left(), last.x())),
                    std::clamp(wanted.y(), room.top(), std::max(room.top(), last.y())));
    corrections_ = kMostCorrections;
    // The geometry is that of the window without the border that the window manager draws around it.
    setGeometry(QRect(place_ - content_->mapTo(this, QPoint(0, 0)), this->size()));
}

void WindowFrame::AskFor(QSize size, QSize own, QSize least) {
    const QScopedValueRollback asking(asking_, true);
    if (layout_.resizeable) {
        // It grows and shrinks by whole rows.
        const int rows = (own.height() - size.height() + rowHeight_ - 1) / rowHeight_;
        size.setHeight(std::max(least.height(), own.height() - rows * rowHeight_));
        setMinimumSize(QSize(size.width(), std::min(PixelsOf(layout_.minHeight, rowHeight_), size.height()))
                       + Bars());
        setMaximumSize(size.width(),
                       std::min(PixelsOf(layout_.maxHeight, rowHeight_) + Bars().height(), QWIDGETSIZE_MAX));
    } else {
        // A window that had to give way may be given its own size, by hand or by the window manager.
        setMinimumSize(size == own ? own + Bars() : least.boundedTo(size) + Bars());
        setMaximumSize(own + Bars());
    }
    asked_ = size;
    AskForWholeRows();
    resize(size + Bars());
    Arrange();
}

void WindowFrame::AskForWholeRows() {
    // The window itself has to be told: what its widget is told of this doesn't reach it.
    if (QWindow* window = windowHandle(); window != nullptr && layout_.resizeable) {
        window->setBaseSize(QSize(0, PixelsOf(layout_.minHeight, rowHeight_) + Bars().height()));
        window->setSizeIncrement(QSize(1, rowHeight_));
    }
}

void WindowFrame::Arrange() {
    if (window_ == nullptr) {
        return;
    }
    const QSize size = isVisible() ? content_->size() : asked_;
    across_ = ContentFit(layout_.width, layout_.slackAcross, rowHeight_, size.width());
    down_ = ContentFit(height_, layout_.slackDown, rowHeight_, size.height());
    for (const Ref<RectControl>& control : window_->Controls(kToolkit)) {
        control->Arrange(kToolkit);
    }
}

void WindowFrame::ContentResized() {
    if (asking_) {
        return;
    }
    const int height = content_->height();
    if (layout_.resizeable && isVisible() && height != asked_.height()) {
        asked_.setHeight(height);
        // Rounded up, so that the content reaches the window's edge.
        height_ = (height * kUnitsPerRow + rowHeight_ - 1) / rowHeight_;
        Arrange();
        ResizedByUser();
    } else {
        Arrange();
    }
}

void WindowFrame::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    const QPoint actual = ContentPosition();
    if (!placed_) {
        movedEnd_.start();
    } else if (actual == place_) {
        return;
    } else if (corrections_ > 0 && isVisible()) {
        --corrections_;
        setGeometry(geometry().translated(place_ - actual));
    } else {
        placed_ = false; // The user moves it: from now on it stands where it stands.
        movedEnd_.start();
    }
}

void WindowFrame::Moved() {
    // It may have come to where there is more room.
    if (!placed_ && isVisible()) {
        const QRect room = Room();
        ChooseRowHeight(room.size());
        const QPoint place = ContentPosition();
        const QSize rest(room.right() + 1 - place.x(), room.bottom() + 1 - place.y());
        const QSize own(PixelsOf(layout_.width, rowHeight_), PixelsOf(height_, rowHeight_));
        AskFor(own.boundedTo(rest.expandedTo(content_->size())), own, Least(layout_, height_, rowHeight_));
    }
}

void WindowFrame::TakeOwnSize() {
    setWindowState(windowState() & ~Qt::WindowMaximized);
    placed_ = false; // It may be on another screen than the one it was told.
    const QRect room = Room();
    const QPoint place = ContentPosition();
    const QPoint last =
        room.bottomRight() - QPoint(PixelsOf(layout_.width, RowHeight()), PixelsOf(height_, RowHeight()));
    PlaceContent(UnitsOf(std::clamp(place.x(), room.left(), std::max(room.left(), last.x())), RowHeight()),
                 UnitsOf(std::clamp(place.y(), room.top(), std::max(room.top(), last.y())), RowHeight()));
}

void WindowFrame::NoteBorder() {
    const QMargins border = windowHandle()->frameMargins();
    if (!border.isNull()) {
        Border() = border;
    }
    // A window that stands where it should when it gets the keyboard isn't moved by anybody but the user.
    if (ContentPosition() == place_) {
        corrections_ = 0;
    }
}

} // namespace folimark
