#pragma once

#include "Picture.h"
#include "RectControl.h"

#include <cstdint>
#include <vector>

namespace folimark {

struct NativeToolItem;

/// An item of a toolbar, told apart by its name.
class ToolItem : public Object {
  public:
    ToolItem();
    ~ToolItem() override;

    const std::string& Name() const { return name_; }
    void Name(const std::string& name) { name_ = name; }
    const std::string& Caption() const { return caption_; }
    void Caption(const std::string& caption);
    const std::string& HelpTag() const { return helpTag_; }
    void HelpTag(const std::string& text);
    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);

  protected:
    friend class Toolbar;
    NativeToolItem& Native() const { return *native_; }

  private:
    std::unique_ptr<NativeToolItem> native_;
    std::string name_;
    std::string caption_;
    std::string helpTag_;
    bool enabled_ = true;
};

/// The styles that are in use.
enum class ToolStyle : std::uint8_t {
    Plain = 0,
    Pushes = 2,   ///< shows as pushed after a click until Pushed is set to False
    Separator = 6 ///< a gap between groups of buttons
};

/// A button on a toolbar.
class ToolButton : public ToolItem {
  public:
    ToolStyle Style() const { return style_; }
    void Style(ToolStyle style) { style_ = style; }
    const Ref<Picture>& Icon() const { return icon_; }
    void Icon(Ref<Picture> icon);
    bool Pushed() const { return pushed_; }
    void Pushed(bool pushed);

  private:
    Ref<Picture> icon_;
    ToolStyle style_ = ToolStyle::Plain;
    bool pushed_ = false;
};

/// The bar of buttons above a window's content; it lies outside the content's height.
class Toolbar : public RectControl {
  public:
    /// Adds an item at the end. Its style has to be set before.
    void Append(const Ref<ToolItem>& item);
    using RectControl::Height;
    /// The bar's height on the screen, in units; 0 once its window has closed. A write is without
    /// effect: the bar is as high as its buttons ask for.
    int Height() const override;

    std::function<void(Toolbar&, ToolItem&)> Action;

  protected:
    void MakeWidget(WindowFrame& frame) override;
    void FitWidget(const WindowFrame& frame) override;

  private:
    std::vector<Ref<ToolItem>> items_;
};

} // namespace folimark
