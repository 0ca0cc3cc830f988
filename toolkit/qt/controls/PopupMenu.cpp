#include "PopupMenu.h"

#include "NativeControl.h"
#include "PlatformText.h"
#include "WindowFrame.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace folimark {
namespace {

/// Arrow keys open it: a row is chosen once, whatever lies between it and the former one.
class Menu : public QComboBox {
  public:
    using QComboBox::QComboBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up) {
            showPopup();
        } else {
            QComboBox::keyPressEvent(event);
        }
    }
};

} // namespace

void PopupMenu::MakeWidget(WindowFrame& frame) {
    auto* menu = new Menu(frame.Content());
    for (const std::string& row : rows_) {
        menu->addItem(ToQString(row));
    }
    menu->setCurrentIndex(listIndex_);
    QObject::connect(menu, &QComboBox::currentIndexChanged, &Native().connections, [this](int row) {
        FromUser([this, row] {
            listIndex_ = row;
            Raise(Change, *this);
        });
    });
    Native().widget = menu;
}

void PopupMenu::AddRow(const std::string& text) {
    rows_.push_back(text);
    if (auto* menu = Native().As<QComboBox>()) {
        const QSignalBlocker quiet(menu); // The first row selects itself, which nobody has asked for.
        menu->addItem(ToQString(text));
        menu->setCurrentIndex(listIndex_);
    }
}

void PopupMenu::DeleteAllRows() {
    rows_.clear();
    listIndex_ = -1;
    if (auto* menu = Native().As<QComboBox>()) {
        const QSignalBlocker quiet(menu);
        menu->clear();
    }
}

void PopupMenu::ListIndex(int row) {
    if (row < -1 || row >= static_cast<int>(rows_.size())) {
        throw OutOfBoundsException("A pop-up menu has no row " + std::to_string(row) + ".");
    }
    listIndex_ = row;
    if (auto* menu = Native().As<QComboBox>()) {
        const QSignalBlocker quiet(menu);
        menu->setCurrentIndex(row);
    }
    Raise(Change, *this);
}

} // namespace folimark
