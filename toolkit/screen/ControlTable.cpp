#include "ControlTable.h"

#include <algorithm>
#include <vector>

namespace folimark {
namespace {

Ref<RectControl> MakeControl(const ControlRow& row) {
    const std::string text(row.text);
    switch (row.controlClass) {
    case ControlClass::Listbox: {
        Ref<Listbox> list = New<Listbox>();
        list->HorizontalScrollBar(row.horizontalScrollBar);
        list->UseFocusRing(row.useFocusRing);
        list->PathSeparator(std::string(row.pathSeparator));
        return list;
    }
    case ControlClass::Canvas:
        return New<Canvas>();
    case ControlClass::PushButton: {
        Ref<PushButton> button = New<PushButton>();
        button->Caption(text);
        button->Default(row.isDefault);
        button->Cancel(row.isCancel);
        return button;
    }
    case ControlClass::Label: {
        Ref<Label> label = New<Label>();
        label->Text(text);
        label->Align(row.align);
        return label;
    }
    case ControlClass::TextField: {
        Ref<TextField> field = New<TextField>();
        field->Text(text);
        return field;
    }
    case ControlClass::PopupMenu:
        return New<PopupMenu>();
    }
    return {};
}

} // namespace

void BuildControls(Window& window, std::span<const ControlRow> rows) {
    std::vector<std::pair<int, Ref<RectControl>>> tabOrder;
    for (const ControlRow& row : rows) {
        const Ref<RectControl> control = MakeControl(row);
        window.AddControl(control, row.name, row.bounds);
        control->HelpTag(std::string(row.helpTag));
        control->AccessibleName(std::string(row.accessibleName));
        control->Enabled(row.enabled);
        control->Visible(row.visible);
        tabOrder.emplace_back(row.tabIndex, control);
    }
    std::ranges::stable_sort(tabOrder, {}, &std::pair<int, Ref<RectControl>>::first);
    for (std::size_t i = 1; i < tabOrder.size(); ++i) {
        tabOrder[i].second->TabAfter(*tabOrder[i - 1].second);
    }
}

} // namespace folimark
