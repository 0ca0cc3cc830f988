#pragma once

#include "Picture.h"
#include "PictureRefusal.h"
#include "RectControl.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace folimark {

struct PictureReading;

/// Shows one picture, from its top left corner.
class Canvas : public RectControl {
  public:
    ~Canvas() override;

    const Ref<Picture>& Backdrop() const { return backdrop_; }
    /// A nil picture shows the window's own colour.
    void Backdrop(Ref<Picture> picture);
    /// For the toolkit: shows the window's own colour until the next write to Backdrop, which keeps its
    /// value; not at once, for most often that write follows soon, and the picture would flicker.
    void GoBlank(const ToolkitKey&);

    /// How large a picture is wanted.
    enum class Room : std::uint8_t {
        OfCanvas, ///< no more pixels than the canvas has, while Width and Height stay the picture's own
        Whole,    ///< all that it has, as far as a picture may have
    };
    /// What has been read ahead serves only as long as the file is the very same.
    enum class Source : std::uint8_t { ReadAhead, Afresh };

    /// Asks for the picture of a file, as Picture::Open gives it, and waits for nothing: PictureReady is
    /// raised with it, inside the call if the picture has been read already, or else as an event. The next
    /// question, or ForgetPicture, takes this one back.
    void RequestPicture(const Ref<FolderItem>& file, Room room, Source source);
    void ForgetPicture();
    /// Has the pictures of those files read while nothing is asked for, the first ones first.
    void ReadAhead(const std::vector<Ref<FolderItem>>& files);

    /// The picture that was asked for is there; or nil, and why.
    std::function<void(Canvas&, const Ref<Picture>&, PictureRefusal)> PictureReady;
    /// It has been asked for some time ago, and isn't there yet.
    std::function<void(Canvas&)> PictureLate;

    /// The user double-clicked; given where in the canvas, in units.
    std::function<void(Canvas&, int x, int y)> DoubleClick;

  protected:
    void MakeWidget(WindowFrame& frame) override;
    void FitWidget(const WindowFrame& frame) override;
    void WindowClosed() override { ForgetPicture(); }

  private:
    void Answer(const PictureReading& reading);

    Ref<Picture> backdrop_;
    std::shared_ptr<void> clearing_; // makes it go blank
    std::shared_ptr<void> patience_; // runs out when a picture is late
};

} // namespace folimark
