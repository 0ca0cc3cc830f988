#pragma once

#include "FolderItem.h"
#include "Graphics.h"
#include "Object.h"

#include <memory>
#include <string>

namespace folimark {

class ToolkitKey;
struct NativePicture;

/// A picture in memory. Its size is in points: what it is drawn at in units when it isn't scaled.
/// It may hold more points than that for sharp screens, or fewer if it was read for a small room.
class Picture : public Object {
  public:
    /// A blank, transparent picture for drawing into. `depth` in bits is what the caller needs at least;
    /// all pictures are held with full colours.
    Picture(int width, int height, int depth);
    explicit Picture(std::unique_ptr<NativePicture> native);
    ~Picture() override;

    /// Reads an image file or the first page of a PDF file, in a process of its own, and waits for it. The
    /// room in logical pixels that it is going to be drawn in may be told: then no more is decoded than that
    /// needs, while Width and Height stay the picture's own. Nil if the file can't be read, is damaged beyond
    /// showing, or takes more time or memory than a preview may. A Canvas reads without anybody waiting.
    static Ref<Picture> Open(const Ref<FolderItem>& file, int roomWidth = 0, int roomHeight = 0);

    /// Reads a picture of the application's own resources by its file name, and the variant for sharp screens
    /// beside it ("Name@2x.png"). Nil if it can't be read.
    static Ref<Picture> FromResource(const std::string& fileName);

    int Width() const;
    int Height() const;
    /// The surface for drawing into the picture, always the same one. It may be kept longer than the picture.
    Ref<folimark::Graphics> Graphics();

    /// For the toolkit: the picture as the window system holds it.
    const NativePicture& Native(const ToolkitKey&) const { return *native_; }

  private:
    std::shared_ptr<NativePicture> native_; // shared with the surface
    Ref<folimark::Graphics> graphics_;      // made at the first question
};

} // namespace folimark
