#include "Accessibility.h"

#include "AccessibleList.h"
#include "CanvasWidget.h"
#include "ListView.h"
#include "Listbox.h"

#include <QAccessible>

namespace folimark {
namespace {

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    if (auto* list = dynamic_cast<ListView*>(object)) {
        return new AccessibleList(list);
    }
    if (auto* canvas = dynamic_cast<CanvasWidget*>(object)) {
        return new QAccessibleWidget(canvas, QAccessible::Graphic);
    }
    return nullptr; // the window system's own widgets describe themselves
}

} // namespace

void InstallAccessibility() {
    QAccessible::installFactory(MakeAccessible);
}

void AnnounceSelection(ListView& view) {
    const std::int64_t row = view.List().ListIndex();
    if (!QAccessible::isActive() || row < 0) {
        return;
    }
    const int child = static_cast<int>(row) * view.List().ColumnCount();
    QAccessibleEvent selected(&view, QAccessible::Selection);
    selected.setChild(child);
    QAccessible::updateAccessibility(&selected);
    if (view.hasFocus()) {
        QAccessibleEvent focused(&view, QAccessible::Focus);
        focused.setChild(child);
        QAccessible::updateAccessibility(&focused);
    }
}

} // namespace folimark
