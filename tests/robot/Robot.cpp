#include "Robot.h"

#include "ClosedWidgets.h"
#include "Listbox.h"
#include "OpenWindows.h"
#include "PictureService.h"
#include "PlatformText.h"
#include "ToolkitKey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QWindow>

namespace folimark::test {
namespace {

/// Milliseconds; far more than anything takes that doesn't hang.
constexpr int kLimit = 10'000;

std::string Named(const QWidget& widget) {
    const QString name = widget.objectName();
    return "“" + ToText(name.isEmpty() ? widget.windowTitle() : name) + "”";
}

/// Raises what keeps a person from using the widget at that place of it.
void CheckUsable(const QWidget& widget, QPoint place) {
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != widget.window()
        && QApplication::activePopupWidget() != widget.window()) {
        throw RobotFailure(Named(widget) + " is behind the dialog " + Named(*modal) + ".");
    }
    if (!widget.isVisible()) {
        throw RobotFailure(Named(widget) + " is hidden.");
    }
    if (!widget.isEnabled()) {
        throw RobotFailure(Named(widget) + " is disabled.");
    }
    const QWidget* hit = widget.window()->childAt(widget.mapTo(widget.window(), place));
    if (hit != &widget && !widget.isAncestorOf(hit) && widget.window() != &widget) {
        throw RobotFailure(Named(widget) + " is covered, or out of sight.");
    }
}

/// A click brings a window to the front, as a window manager does it.
void BringForward(QWidget& window) {
    if (QApplication::activeWindow() != &window && window.windowType() != Qt::Popup) {
        window.activateWindow();
        Settle();
    }
}

QWindow& Front() {
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr) {
        throw RobotFailure("No window has the keyboard.");
    }
    return *window->windowHandle();
}

QAbstractButton& ButtonOf(const QWidget& window, const std::string& button) {
    for (QAbstractButton* candidate : window.findChildren<QAbstractButton*>()) {
        if (candidate->objectName() == ToQString(button) || Read(candidate->text()) == ToQString(button)) {
            return *candidate;
        }
    }
    throw RobotFailure(Named(window) + " has no button “" + button + "”.");
}

QTableView& ListOf(const Ref<Window>& window) {
    if (auto* list = FrameOf(window).findChild<QTableView*>()) {
        return *list;
    }
    throw RobotFailure("The window “" + window->Title() + "” has no list.");
}

} // namespace

QString Read(QString caption) {
    caption.replace(QLatin1String("&&"), QLatin1String("\n")).remove(QLatin1Char('&'));
    caption.replace(QLatin1Char('\n'), QLatin1Char('&'));
    return caption.section(QLatin1String("  "), 0, 0);
}

WindowFrame& FrameOf(const Ref<Window>& window) {
    auto* frame = static_cast<WindowFrame*>(window->Native(kToolkit));
    if (frame == nullptr || !frame->isVisible()) {
        throw RobotFailure("The window “" + window->Title() + "” isn't open.");
    }
    return *frame;
}

void Settle() {
    QCoreApplication::processEvents();
    if (!QTest::qWaitFor([] { return !PictureService::The().IsAwaited(); }, kLimit)) {
        throw RobotFailure("A picture that was asked for never came.");
    }
    DeleteClosedWidgets();
    QCoreApplication::processEvents();
    GiveKeyboardToSomebody();
}

void WaitFor(const std::function<bool()>& fact, const std::string& what) {
    if (!QTest::qWaitFor(fact, kLimit)) {
        throw RobotFailure("It never came true that " + what + ".");
    }
}

Ref<Window> WindowTitled(const std::string& title) {
    for (const Ref<Window>& window : OpenWindows()) {
        if (window->Title() == title) {
            return window;
        }
    }
    throw RobotFailure("No window “" + title + "” is open.");
}

std::string FrontTitle() {
    const QWidget* window = QApplication::activeWindow();
    return window == nullptr ? "" : ToText(window->windowTitle());
}

void ClickAt(QWidget& widget, QPoint place, bool twice, Qt::MouseButton button) {
    CheckUsable(widget, place);
    QWidget& window = *widget.window();
    BringForward(window);
    const QPoint inWindow = widget.mapTo(&window, place);
    if (twice) {
        QTest::mouseDClick(window.windowHandle(), button, {}, inWindow);
    } else {
        QTest::mouseClick(window.windowHandle(), button, {}, inWindow);
    }
    Settle();
}

void ClickButtonOf(QWidget& dialog, const std::string& button) {
    QAbstractButton& found = ButtonOf(dialog, button);
    ClickAt(found, found.rect().center());
}

void Click(const Ref<Window>& window, const std::string& button) {
    ClickButtonOf(FrameOf(window), button);
}

void ClickRow(const Ref<Window>& window, int row, bool twice, Qt::MouseButton button) {
    QTableView& list = ListOf(window);
    Settle(); // New rows come to the screen in batches.
    const QModelIndex index = list.model()->index(row, 0);
    if (!index.isValid()) {
        throw RobotFailure("The list has no row " + std::to_string(row) + ".");
    }
    list.scrollTo(index); // As the wheel would.
    ClickAt(*list.viewport(), list.visualRect(index).center(), twice, button);
}

void ClickBelowRows(const Ref<Window>& window) {
    const QTableView& list = ListOf(window);
    const QPoint place(list.viewport()->width() / 2, list.viewport()->height() - 1);
    if (list.indexAt(place).isValid()) {
        throw RobotFailure("The list has no empty part.");
    }
    ClickAt(*list.viewport(), place);
}

void ClickHeading(const Ref<Window>& window, const std::string& heading) {
    QHeaderView& headings = *ListOf(window).horizontalHeader();
    for (int column = 0; column < headings.count(); ++column) {
        if (headings.model()->headerData(column, Qt::Horizontal).toString().trimmed() == ToQString(heading)) {
            const int place = headings.sectionViewportPosition(column) + headings.sectionSize(column) / 2;
            if (headings.isSectionHidden(column)) {
                throw RobotFailure("The column “" + heading + "” is hidden.");
            }
            ClickAt(*headings.viewport(), QPoint(place, headings.height() / 2));
            return;
        }
    }
    throw RobotFailure("The list has no heading “" + heading + "”.");
}

void DoubleClick(const Ref<Window>& window, const std::string& control) {
    QWidget& widget = WidgetOf(window, control);
    ClickAt(widget, widget.rect().center(), true);
}

void ChooseRow(const Ref<Window>& window, const std::string& popupMenu, const std::string& row) {
    auto& menu = dynamic_cast<QComboBox&>(WidgetOf(window, popupMenu));
    const int index = menu.findText(ToQString(row));
    if (index < 0) {
        throw RobotFailure(Named(menu) + " has no row “" + row + "”.");
    }
    ClickAt(menu, menu.rect().center());
    QAbstractItemView& rows = *menu.view();
    WaitFor([&rows] { return rows.isVisible(); }, "the pop-up menu is open");
    ClickAt(*rows.viewport(), rows.visualRect(menu.model()->index(index, 0)).center());
}

void CloseByFrame(const Ref<Window>& window) {
    WindowFrame& frame = FrameOf(window);
    CheckUsable(frame, QPoint());
    if (!frame.windowFlags().testFlag(Qt::WindowCloseButtonHint)) {
        throw RobotFailure("The window “" + window->Title() + "” has no close button.");
    }
    frame.windowHandle()->close();
    Settle();
}

void DragHeight(const Ref<Window>& window, int height) {
    WindowFrame& frame = FrameOf(window);
    const int wanted = frame.height() + height - window->Height();
    if (wanted < frame.minimumHeight() || wanted > frame.maximumHeight()) {
        throw RobotFailure("The window “" + window->Title() + "” can't be dragged to that height.");
    }
    frame.windowHandle()->resize(frame.width(), wanted);
    Settle();
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&Front(), key, modifiers);
    Settle();
}

void PressAtOnce(std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) {
        qt_handleKeyEvent(&Front(), QEvent::KeyPress, key, Qt::NoModifier);
        qt_handleKeyEvent(&Front(), QEvent::KeyRelease, key, Qt::NoModifier);
    }
    Settle();
}

void PressUnannounced(const Ref<Window>& window, Qt::Key key) {
    {
        QWidget other;
        other.show();
        other.activateWindow();
        QCoreApplication::processEvents();
    } // Nobody is told who has the keyboard then.
    QTest::keyClick(FrameOf(window).windowHandle(), key);
    Settle();
}

void PressInMenu(Qt::Key key) {
    QWidget* menu = QApplication::activePopupWidget();
    if (menu == nullptr) {
        throw RobotFailure("No menu is open.");
    }
    QTest::keyClick(menu->windowHandle(), key);
    Settle();
}

void Type(const std::string& text) {
    for (const QChar character : ToQString(text)) {
        QTest::sendKeyEvent(QTest::Click, &Front(), Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
    Settle();
}

QWidget& WidgetOf(const Ref<Window>& window, const std::string& control) {
    auto* widget = FrameOf(window).findChild<QWidget*>(ToQString(control));
    if (widget == nullptr) {
        throw RobotFailure("The window “" + window->Title() + "” has no control “" + control + "”.");
    }
    return *widget;
}

QRgb ColorAt(const QImage& picture, int x, int y) {
    return picture.pixel((QPointF(x, y) * picture.devicePixelRatio()).toPoint()) | 0xFF000000;
}

QImage PictureOf(const Ref<Window>& window) {
    Settle();
    return FrameOf(window).grab().toImage();
}

} // namespace folimark::test
