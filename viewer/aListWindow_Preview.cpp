#include "FileTypeRegistry.h"
#include "GlobalData.h"
#include "MediaKind.h"
#include "MsgBox.h"
#include "Picture.h"
#include "aListWindow.h"

#include <utility>

namespace folimark {
namespace {

constexpr Color kRed = 0xFF0000;
constexpr Color kYellow = 0xFFFF66;
constexpr Color kTextColor = 0x333333;

// The sizes between which a picture is fitted; others are shown as they are.
constexpr int kLeastSide = 1;
constexpr int kMostSide = 32767;

/// Rows between hits, at most, that are worth looking at for one.
constexpr std::int64_t kFarthestHit = 10'000;

Ref<Picture> FilledPicture(const Ref<Canvas>& canvas, int depth, Color color) {
    Ref<Picture> picture = New<Picture>(canvas->Width(), canvas->Height(), depth);
    const Ref<Graphics> graphics = picture->Graphics();
    graphics->ForeColor(color);
    graphics->FillRect(0, 0, canvas->Width(), canvas->Height());
    return picture;
}

bool CanBeFitted(const Ref<Picture>& picture) {
    const auto fits = [](int side) { return side >= kLeastSide && side <= kMostSide; };
    return fits(picture->Width()) && fits(picture->Height());
}

/// Says why a file isn't shown.
std::string NoticeOf(const std::string& kindName, PictureRefusal refusal) {
    const std::string thisFile = "This " + kindName + " file ";
    switch (refusal) {
    case PictureRefusal::None:
        return thisFile + "can’t be shown.";
    case PictureRefusal::Empty:
        return thisFile + "is empty.";
    case PictureRefusal::TooLarge:
        return thisFile + "is too large for a preview.";
    case PictureRefusal::TooSlow:
        return thisFile + "takes too long to read.";
    case PictureRefusal::Damaged:
        return thisFile + "is damaged, or isn’t what its name says.";
    case PictureRefusal::ReaderIsBroken:
        return "Pictures can’t be shown.";
    default:
        return thisFile + "can’t be read.";
    }
}

void TellOfReaderOnce() {
    static bool told = false;
    if (!std::exchange(told, true)) {
        GlobalData::MessageBox1(
            GlobalData::MessageKind::Caution, "OK", "Folimark can’t show pictures and PDF files.",
            "The program “folimark-pictures”, which reads them, is missing or doesn’t work. "
            "Please install Folimark again.");
    }
}

} // namespace

void aListWindow::DrawCatalogItem() {
    const Ref<Canvas> canvas = TheCanvas();
    Graphics().ClearRect(canvas->Left(), canvas->Top(), canvas->Width(), canvas->Height());
    const std::string path = TheListBox()->RowTag(TheListBox()->ListIndex());
    const Ref<FolderItem> file = GetFolderItem(path, 0);
    const bool there = file && file->Exists();
    if (!file || !(there || file->Unknown())) {
        GlobalData::MessageBox1(
            GlobalData::MessageKind::Caution, "OK",
            "This media file no longer exists in this album. It has been removed from this album, renamed "
            "or deleted.",
            "This album will be closed, and may then be reopened with the current media files.");
        Close();
        return;
    }
    canvas->ForgetPicture();
    const MediaKind* const kind = KindOf(file->Type());
    if (kind == nullptr) {
        MsgBox("File is not a recognizable media file, but this can't happen");
        canvas->Backdrop(ComposePreview(FilledPicture(canvas, 8, kRed)));
        return;
    }
    canvas->HelpTag(kind->canvasHelp);
    EditPushButton()->HelpTag(kind->buttonHelp);
    EditPushButton()->Caption(kind->buttonCaption);
    shownKind_ = kind->name;
    if (there && kind->icon == nullptr) {
        // Choosing a row once more shows the file as it is now.
        const bool again = path == std::exchange(shownPath_, path);
        requested_ = file;
        canvas->RequestPicture(file, Canvas::Room::OfCanvas,
                               again ? Canvas::Source::Afresh : Canvas::Source::ReadAhead);
        return;
    }
    shownPath_ = path;
    ShowPreview(there ? kind->icon() : Ref<Picture>(),
                there ? PictureRefusal::None : PictureRefusal::Unreadable);
}

void aListWindow::TheCanvas_PictureReady(Canvas& canvas, const Ref<Picture>& picture,
                                         PictureRefusal refusal) {
    if (picture && !CanBeFitted(picture) && requested_) { // It is shown as it is.
        canvas.RequestPicture(std::exchange(requested_, {}), Canvas::Room::Whole, Canvas::Source::ReadAhead);
    } else {
        ShowPreview(picture, refusal);
    }
}

void aListWindow::TheCanvas_PictureLate(Canvas& canvas) {
    canvas.Backdrop(ComposeNotice("Reading…"));
}

void aListWindow::ShowPreview(const Ref<Picture>& source, PictureRefusal refusal) {
    TheCanvas()->Backdrop(source ? ComposePreview(source) : ComposeNotice(NoticeOf(shownKind_, refusal)));
    ReadAhead();
    if (refusal == PictureRefusal::ReaderIsBroken) {
        TellOfReaderOnce();
    }
}

std::vector<std::int64_t> aListWindow::LikelyRows(std::int64_t row, std::int64_t step) const {
    if (row != hitShown_) {
        return {row + step, row + 2 * step, row - step};
    }
    std::vector<std::int64_t> rows;
    const auto addHits = [&](std::int64_t way, int count) {
        for (std::int64_t i = 1; i <= kFarthestHit && count > 0; ++i) {
            if (const std::int64_t next = row + i * way; next >= 0 && IsHighlighted(*TheListBox(), next)) {
                rows.push_back(next);
                --count;
            }
        }
    };
    addHits(step, 2);
    addHits(-step, 1);
    return rows;
}

void aListWindow::ReadAhead() {
    const Ref<Listbox> list = TheListBox();
    const std::int64_t row = list->ListIndex();
    const std::int64_t step = row < std::exchange(lastRow_, row) ? -1 : 1;
    std::vector<Ref<FolderItem>> files;
    for (const std::int64_t next : LikelyRows(row, step)) {
        if (next >= 0 && next <= list->LastIndex()) {
            const std::string path = list->RowTag(next);
            const MediaKind* const kind = KindOf(FileTypeOf(path.substr(path.rfind(':') + 1)));
            if (kind != nullptr && kind->icon == nullptr) {
                files.push_back(GetFolderItem(path, 0));
            }
        }
    }
    TheCanvas()->ReadAhead(files);
}

Ref<Picture> aListWindow::ComposeNotice(const std::string& text) {
    Ref<Picture> preview = FilledPicture(TheCanvas(), 16, BackColor());
    const Ref<class Graphics> graphics = preview->Graphics();
    graphics->ForeColor(kTextColor);
    graphics->DrawText(text, 0, 0, preview->Width(), preview->Height());
    return preview;
}

Ref<Picture> aListWindow::ComposePreview(const Ref<Picture>& source) {
    const Ref<Canvas> canvas = TheCanvas();
    if (!CanBeFitted(source)) {
        Ref<Picture> preview = New<Picture>(canvas->Width(), canvas->Height(), 8);
        preview->Graphics()->DrawPicture(source, 0, 0);
        return preview;
    }
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    ResizeAndRepositionImage(source, left, top, width, height);
    try {
        Ref<Picture> preview = FilledPicture(canvas, 16, BackColor());
        preview->Graphics()->DrawPicture(source, left, top, width, height, 0, 0, source->Width(),
                                         source->Height());
        return preview;
    } catch (...) { // Whatever kept the picture from being scaled: an unscaled one is better than none.
        Ref<Picture> preview = FilledPicture(canvas, 8, kYellow);
        preview->Graphics()->DrawPicture(source, 0, 0);
        return preview;
    }
}

// The widths of the numbers are part of the result: 32-bit floats where it says float, each result cut off
// towards zero.
void aListWindow::ResizeAndRepositionImage(const Ref<Picture>& picture, int& destLeft, int& destTop,
                                           int& destWidth, int& destHeight) {
    const double canvasWidth = TheCanvas()->Width();
    const double canvasHeight = TheCanvas()->Height();
    auto pictureWidth = static_cast<float>(picture->Width());
    auto pictureHeight = static_cast<float>(picture->Height());
    const auto scale = static_cast<float>(pictureWidth > pictureHeight ? canvasWidth / pictureWidth
                                                                       : canvasHeight / pictureHeight);
    pictureWidth *= scale;
    pictureHeight *= scale;
    destWidth = static_cast<int>(pictureWidth);
    destHeight = static_cast<int>(pictureHeight);
    destLeft = static_cast<int>(static_cast<float>((canvasWidth - pictureWidth) / 2.0));
    destTop = static_cast<int>(static_cast<float>(canvasHeight - pictureHeight));
}

} // namespace folimark
