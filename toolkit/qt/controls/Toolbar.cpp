#include "Toolbar.h"

#include "ContentFit.h"
#include "FontMeasure.h"
#include "NativeControl.h"
#include "NativePicture.h"
#include "NativeToolItem.h"
#include "PlatformText.h"
#include "ToolkitKey.h"
#include "WindowFrame.h"

#include <QIcon>
#include <QPixmap>
#include <QSignalBlocker>
#include <QToolBar>
#include <QToolButton>

namespace folimark {
namespace {

constexpr int kIconSize = 32; // units

QIcon IconOf(const Ref<Picture>& picture) {
    if (!picture) {
        return {};
    }
    const NativePicture& native = picture->Native(kToolkit);
    QPixmap pixmap = QPixmap::fromImage(native.image);
    pixmap.setDevicePixelRatio(static_cast<double>(native.image.width()) / native.width);
    return QIcon(pixmap);
}

} // namespace

ToolItem::ToolItem() : native_(std::make_unique<NativeToolItem>()) {}

ToolItem::~ToolItem() = default;

void ToolItem::Caption(const std::string& caption) {
    caption_ = caption;
    if (native_->action) {
        native_->action->setText(AsCaption(caption));
    }
}

void ToolItem::HelpTag(const std::string& text) {
    helpTag_ = text;
    if (native_->action) {
        native_->action->setToolTip(AsToolTip(text));
    }
}

void ToolItem::Enabled(bool enabled) {
    enabled_ = enabled;
    if (native_->action) {
        native_->action->setEnabled(enabled);
    }
}

void ToolButton::Icon(Ref<Picture> icon) {
    icon_ = std::move(icon);
    if (Native().action) {
        Native().action->setIcon(IconOf(icon_));
    }
}

void ToolButton::Pushed(bool pushed) {
    pushed_ = pushed;
    if (Native().action) {
        // It is an ordinary button but while its command runs, and is announced as one.
        const QSignalBlocker quiet(Native().action);
        Native().action->setCheckable(pushed);
        Native().action->setChecked(pushed);
    }
}

void Toolbar::MakeWidget(WindowFrame& frame) {
    auto* bar = new QToolBar(&frame);
    bar->setMovable(false);
    bar->setFloatable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    frame.addToolBar(bar);
    Native().widget = bar;
}

void Toolbar::FitWidget(const WindowFrame& frame) {
    auto* bar = Native().As<QToolBar>();
    const int icon = PixelsOf(kIconSize, frame.RowPixels());
    bar->setIconSize(QSize(icon, icon));
    std::vector<QToolButton*> buttons;
    for (const Ref<ToolItem>& item : items_) {
        if (auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(item->Native().action))) {
            button->setMaximumWidth(QWIDGETSIZE_MAX);
            buttons.push_back(button);
        }
    }
    // Where the buttons ask for more than there is, each does with a little less: their margins have it to
    // spare.
    const int missing = bar->sizeHint().width() - frame.ContentWidth();
    for (QToolButton* button : buttons) {
        const auto count = static_cast<int>(buttons.size());
        button->setMaximumWidth(missing > 0 ? button->sizeHint().width() - (missing + count - 1) / count
                                            : QWIDGETSIZE_MAX);
    }
}

void Toolbar::Append(const Ref<ToolItem>& item) {
    items_.push_back(item);
    auto* bar = Native().As<QToolBar>();
    if (bar == nullptr) {
        return;
    }
    const Ref<ToolButton> button = item.As<ToolButton>();
    if (button && button->Style() == ToolStyle::Separator) {
        item->Native().action = bar->addSeparator();
        return;
    }
    QAction* action = bar->addAction(AsCaption(item->Caption()));
    item->Native().action = action;
    item->HelpTag(item->HelpTag());
    item->Enabled(item->Enabled());
    if (button) {
        button->Icon(button->Icon());
    }
    // A toolbar's buttons take no keyboard focus unless they are told to.
    if (auto* widget = qobject_cast<QToolButton*>(bar->widgetForAction(action)); widget != nullptr) {
        widget->setFocusPolicy(Qt::TabFocus);
        widget->installEventFilter(bar->window()); // for the keys that walk through the list
        widget->setObjectName(ToQString(item->Name()));
    }
    QObject::connect(action, &QAction::triggered, &Native().connections, [this, item, button] {
        FromUser([this, item, button] {
            if (button && button->Style() == ToolStyle::Pushes) {
                button->Pushed(true);
            }
            Raise(Action, *this, *item);
        });
    });
}

int Toolbar::Height() const {
    const QWidget* bar = Native().widget;
    return bar == nullptr ? 0 : UnitsOf(bar->sizeHint().height(), RowHeight());
}

} // namespace folimark
