#pragma once

#include "FolderItem.h"
#include "Object.h"

#include <string>

namespace folimark {

/// A dialog in which the user chooses a file or a folder: the desktop's own, where there is one.
class FolderItemDialog : public Object {
  public:
    void ActionButtonCaption(const std::string& caption) { actionButtonCaption_ = caption; }
    void Title(const std::string& title) { title_ = title; }
    void PromptText(const std::string& text) { promptText_ = text; }

    /// Blocks until the user has answered. Nil if they cancelled, or have been told that it can't be opened.
    virtual Ref<FolderItem> ShowModal() = 0;

  protected:
    std::string actionButtonCaption_;
    std::string title_;
    std::string promptText_;
};

class SelectFolderDialog : public FolderItemDialog {
  public:
    Ref<FolderItem> ShowModal() override;
};

} // namespace folimark
