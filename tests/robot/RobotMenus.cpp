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

QMenu& OpenMenu(const std::string& menu) {
    auto* frame = dynamic_cast<QMainWindow*>(QApplication::activeWindow());
    QMenuBar* bar = frame == nullptr ? nullptr : frame->menuBar();
    for (QAction* action : bar == nullptr ? QList<QAction*>() : bar->actions()) {
        if (Read(action->text()) == ToQString(menu)) {
            ClickAt(*bar, bar->actionGeometry(action).center());
            WaitFor([action] { return action->menu()->isVisible(); }, "the menu “" + menu + "” is open");
            return *action->menu();
        }
    }
    throw RobotFailure("The front window has no menu “" + menu + "”.");
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

void PressTooLate(const std::string& menu, Qt::Key key) {
    QMenu& opened = OpenMenu(menu);
    opened.close();
    QTest::keyClick(opened.windowHandle(), key);
    Settle();
}

void ChooseForRow(const Ref<Window>& window, int row, const std::string& item) {
    ClickRow(window, row, false, Qt::RightButton);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) {
        throw RobotFailure("The row has no menu.");
    }
    ClickAt(*menu, PlaceOf(*menu, item));
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
