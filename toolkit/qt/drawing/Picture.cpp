#include "Picture.h"

#include "FontMeasure.h"
#include "NativePicture.h"
#include "NativeSurface.h"
#include "PictureProcess.h"
#include "Resources.h"
#include "Units.h"

#include <QFile>
#include <QGuiApplication>

#include <cmath>

namespace folimark {
namespace {

Ref<Picture> MakePicture(const QImage& image, int width, int height) {
    return New<Picture>(std::make_unique<NativePicture>(NativePicture{image, width, height}));
}

QImage ReadResource(const std::string& fileName) {
    const Ref<FolderItem> file = ResourcesFolder()->Child(fileName);
    return file ? QImage(QFile::decodeName(QByteArray::fromStdString(file->NativePath()))) : QImage();
}

} // namespace

int InDevicePixels(int units) {
    return static_cast<int>(std::ceil(units * qGuiApp->devicePixelRatio() * RowHeight() / kUnitsPerRow));
}

Ref<Picture> MakePicture(const DecodedPicture& decoded) {
    // The image shows the shared memory itself, and keeps it for as long as it lives.
    auto* owner = new std::shared_ptr<const std::uint32_t>(decoded.pixels);
    const auto letGo = [](void* kept) { delete static_cast<std::shared_ptr<const std::uint32_t>*>(kept); };
    const QImage image(reinterpret_cast<const uchar*>(owner->get()), decoded.width, decoded.height,
                       static_cast<qsizetype>(decoded.width) * qsizetype{sizeof(std::uint32_t)},
                       QImage::Format_ARGB32_Premultiplied, letGo, owner);
    if (image.isNull()) { // it hasn't taken the pixels over then
        letGo(owner);
        return {};
    }
    return MakePicture(image, decoded.pictureWidth, decoded.pictureHeight);
}

Picture::Picture(int width, int height, int /*depth*/)
    : native_(std::make_shared<NativePicture>(NativePicture{
        QImage(InDevicePixels(width), InDevicePixels(height), QImage::Format_ARGB32_Premultiplied), width,
        height})) {
    native_->image.fill(Qt::transparent);
}

Picture::Picture(std::unique_ptr<NativePicture> native) : native_(std::move(native)) {}

Picture::~Picture() = default;

Ref<Picture> Picture::Open(const Ref<FolderItem>& file, int roomWidth, int roomHeight) {
    const PictureReading reading = ReadPicture(
        {file->NativePath(), file->Type(), InDevicePixels(roomWidth), InDevicePixels(roomHeight)});
    return reading.picture ? MakePicture(*reading.picture) : Ref<Picture>();
}

Ref<Picture> Picture::FromResource(const std::string& fileName) {
    const QImage plain = ReadResource(fileName);
    if (plain.isNull()) {
        return {};
    }
    const std::string::size_type dot = fileName.rfind('.');
    const QImage sharp = ReadResource(fileName.substr(0, dot) + "@2x" + fileName.substr(dot));
    return MakePicture(sharp.isNull() ? plain : sharp, plain.width(), plain.height());
}

int Picture::Width() const {
    return native_->width;
}

int Picture::Height() const {
    return native_->height;
}

Ref<folimark::Graphics> Picture::Graphics() {
    if (!graphics_) {
        graphics_ = New<folimark::Graphics>(std::make_unique<PictureSurface>(native_));
    }
    return graphics_;
}

} // namespace folimark
