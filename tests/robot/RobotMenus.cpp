#include "PlatformText.h"
#include "Robot.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTest>

namespace folimark::test {
namespace {

QAction& TitleOf(const QMenuBar& bar, const std::string& menu) {
    for (QAction* action : bar.actions()) {
        if (Read(action->text()) == ToQString(menu)) {
            return *action;
        }
    }
    throw RobotFailure("The window has no menu “" + menu + "”.");
}

QMenu& OpenMenu(const std::string& menu) {
    auto* frame = dynamic_cast<QMainWindow*>(QApplication::activeWindow());
    if (frame == nullptr) {
        throw RobotFailure("The front window has no menus.");
    }
    QMenuBar& bar = *frame->menuBar();
    QAction& title = TitleOf(bar, menu);
    ClickAt(bar, bar.actionGeometry(&title).center());
    WaitFor([&title] { return title.menu()->isVisible(); }, "the menu “" + menu + "” is open");
    return *title.menu();
}

/// Where an item stands that a person could choose.
QPoint PlaceOf(QMenu& opened, const std::string& item) {
    for (QAction* action : opened.actions()) {
        if (Read(action->text()) != ToQString(item) || !action->isVisible()) {
            continue;
        }
        if (!action->isEnabled()) {
            opened.close();
            throw RobotFailure("The menu item “" + item + "” is disabled.");
        }
        return opened.actionGeometry(action).center();
    }
    opened.close();
    throw RobotFailure("The menu has no item “" + item + "”.");
}

} // namespace

void Choose(const std::string& menu, const std::string& item) {
    QMenu& opened = OpenMenu(menu);
    ClickAt(opened, PlaceOf(opened, item));
}

void ChooseTooLate(const std::string& menu, const std::string& item) {
    QMenu& opened = OpenMenu(menu);
    const QPoint place = PlaceOf(opened, item);
    opened.close();
    QTest::mouseClick(opened.windowHandle(), Qt::LeftButton, {}, place);
    Settle();
}

bool OpensTooLate(const Ref<Window>& window, const std::string& menu) {
    WindowFrame& frame = FrameOf(window);
    const QMenuBar& bar = *frame.menuBar();
    const QPoint place = bar.mapTo(&frame, bar.actionGeometry(&TitleOf(bar, menu)).center());
    frame.windowHandle()->close();
    QTest::mousePress(frame.windowHandle(), Qt::LeftButton, {}, place);
    return QApplication::activePopupWidget() != nullptr;
}

void ChooseForRow(const Ref<Window>& window, int row, const std::string& item) {
    ClickRow(window, row, false, Qt::RightButton);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) {
        throw RobotFailure("The row has no menu.");
    }
    ClickAt(*menu, PlaceOf(*menu, item));
    Settle(); // The command comes when the menu has gone.
}

std::string EnabledItems(const std::string& menu) {
    QMenu& opened = OpenMenu(menu);
    QStringList items;
    for (const QAction* action : opened.actions()) {
        if (action->isEnabled() && !action->isSeparator()) {
            items.append(Read(action->text()));
        }
    }
    opened.close();
    Settle();
    return ToText(items.join(QLatin1String(", ")));
}

QImage PictureOfMenu(const std::string& menu) {
    QMenu& opened = OpenMenu(menu);
    QWidget& frame = *QApplication::activeWindow();
    QImage picture = frame.grab().toImage();
    QPainter(&picture).drawPixmap(frame.mapFromGlobal(opened.pos()), opened.grab());
    opened.close();
    Settle();
    return picture;
}

} // namespace folimark::test
