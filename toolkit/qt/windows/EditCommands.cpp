#include "EditCommands.h"

#include "ListView.h"
#include "Listbox.h"
#include "ToolkitKey.h"
#include "WindowFrame.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>

#include <algorithm>
#include <array>
#include <string_view>

namespace folimark {
namespace {

struct EditCommand {
    std::string_view itemName;
    bool (*possible)(const QLineEdit&);
    void (*run)(QLineEdit&);
};

constexpr std::array kCommands{
    EditCommand{"EditUndo", [](const QLineEdit& field) { return field.isUndoAvailable(); },
                [](QLineEdit& field) { field.undo(); }},
    EditCommand{"EditCut", [](const QLineEdit& field) { return field.hasSelectedText(); },
                [](QLineEdit& field) { field.cut(); }},
    EditCommand{"EditCopy", [](const QLineEdit& field) { return field.hasSelectedText(); },
                [](QLineEdit& field) { field.copy(); }},
    EditCommand{"EditPaste", [](const QLineEdit&) { return !QApplication::clipboard()->text().isEmpty(); },
                [](QLineEdit& field) { field.paste(); }},
    EditCommand{"EditClear", [](const QLineEdit& field) { return field.hasSelectedText(); },
                [](QLineEdit& field) { field.del(); }},
    EditCommand{"EditSelectAll", [](const QLineEdit& field) { return !field.text().isEmpty(); },
                [](QLineEdit& field) { field.selectAll(); }},
};

/// The control that has the keyboard, or has lent it to the menu bar.
QWidget* KeyboardHolder() {
    QWidget* const holder = QApplication::focusWidget();
    const auto* frame =
        qobject_cast<QMenuBar*>(holder) != nullptr ? dynamic_cast<WindowFrame*>(holder->window()) : nullptr;
    return frame != nullptr ? frame->LastControl() : holder;
}

QLineEdit* FocusedField() {
    return qobject_cast<QLineEdit*>(KeyboardHolder());
}

/// Copying is all that a list can do of these.
constexpr std::string_view kCopy = "EditCopy";

ListView* FocusedList() {
    return dynamic_cast<ListView*>(KeyboardHolder());
}

const EditCommand* Find(const std::string& itemName) {
    const auto* found = std::ranges::find(kCommands, itemName, &EditCommand::itemName);
    return found == kCommands.end() ? nullptr : found;
}

} // namespace

bool CanRunEditCommand(const std::string& itemName) {
    const EditCommand* command = Find(itemName);
    if (const ListView* list = FocusedList()) {
        return itemName == kCopy && list->List().CanCopy(kToolkit);
    }
    const QLineEdit* field = FocusedField();
    return command != nullptr && field != nullptr && command->possible(*field);
}

void RunEditCommand(const std::string& itemName) {
    const EditCommand* command = Find(itemName);
    if (const ListView* list = FocusedList(); list != nullptr && itemName == kCopy) {
        list->List().Copy(kToolkit);
    } else if (QLineEdit* field = FocusedField(); command != nullptr && field != nullptr) {
        command->run(*field);
    }
}

} // namespace folimark
