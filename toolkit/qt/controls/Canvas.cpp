#include "Canvas.h"

#include "CanvasWidget.h"
#include "EventLoop.h"
#include "FileTypeRegistry.h"
#include "NativeControl.h"
#include "NativePicture.h"
#include "PictureService.h"
#include "ToolkitKey.h"
#include "WindowFrame.h"

namespace folimark {
namespace {

/// What comes sooner needs no word about it.
constexpr std::chrono::milliseconds kPatience{200};

PictureQuestion QuestionOf(const Ref<FolderItem>& file, int width, int height) {
    std::string path = file->NativePath();
    std::string type = FileTypeOf(path.substr(path.rfind('/') + 1)); // asks nothing of the system
    return {std::move(path), std::move(type), InDevicePixels(width), InDevicePixels(height)};
}

} // namespace

Canvas::~Canvas() {
    ForgetPicture();
}

void Canvas::MakeWidget(WindowFrame& frame) {
    Native().widget = new CanvasWidget(frame.Content(), [this](int x, int y) {
        FromUser([this, x, y] { Raise(DoubleClick, *this, x, y); });
    });
    Backdrop(backdrop_);
}

void Canvas::FitWidget(const WindowFrame& frame) {
    RectControl::FitWidget(frame);
    Native().As<CanvasWidget>()->Measure(QSize(Width(), Height()));
}

void Canvas::Backdrop(Ref<Picture> picture) {
    backdrop_ = std::move(picture);
    clearing_.reset();
    if (!backdrop_) {
        GoBlank(kToolkit);
    } else if (auto* widget = Native().As<CanvasWidget>()) {
        widget->Show(backdrop_->Native(kToolkit).image, QSize(backdrop_->Width(), backdrop_->Height()));
    }
}

void Canvas::GoBlank(const ToolkitKey&) {
    clearing_ = CallAfter(backdrop_ ? kPatience : std::chrono::milliseconds(0), [this] {
        if (auto* widget = Native().As<CanvasWidget>()) {
            widget->Show(QImage(), QSize());
        }
    });
}

void Canvas::RequestPicture(const Ref<FolderItem>& file, Room room, Source source) {
    ForgetPicture();
    PictureService& service = PictureService::The();
    const PictureQuestion question =
        room == Room::Whole ? QuestionOf(file, 0, 0) : QuestionOf(file, Width(), Height());
    if (source == Source::ReadAhead) {
        if (const PictureReading* const reading = service.Find(question)) {
            Answer(*reading);
            return;
        }
    }
    service.Ask(this, question, [this](const PictureReading& reading) {
        FromUser([&] {
            patience_.reset();
            Answer(reading);
        });
    });
    patience_ = CallAfter(kPatience, [this] { FromUser([this] { Raise(PictureLate, *this); }); });
}

void Canvas::Answer(const PictureReading& reading) {
    Raise(PictureReady, *this, reading.picture ? MakePicture(*reading.picture) : nullptr, reading.refusal);
}

void Canvas::ForgetPicture() {
    patience_.reset();
    PictureService::The().Forget(this);
}

void Canvas::ReadAhead(const std::vector<Ref<FolderItem>>& files) {
    std::vector<PictureQuestion> questions;
    questions.reserve(files.size());
    for (const Ref<FolderItem>& file : files) {
        questions.push_back(QuestionOf(file, Width(), Height()));
    }
    PictureService::The().ReadAhead(std::move(questions));
}

} // namespace folimark
