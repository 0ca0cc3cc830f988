#pragma once

#include <QColor>
#include <QRect>

#include <functional>
#include <memory>

class QPainter;

namespace folimark {

struct NativePicture;

/// What a Graphics draws on.
class NativeSurface {
  public:
    virtual ~NativeSurface() = default;
    /// In units, but for what is painted on the screen at once: in logical pixels.
    virtual QSize Size() const = 0;
    /// What ClearRect leaves.
    virtual QColor Ground() const = 0;
    /// Runs `drawing` with a painter whose origin and units are the surface's.
    virtual void Paint(const std::function<void(QPainter&)>& drawing) = 0;
};

/// A rectangle of something that a painter paints, for the length of a paint.
class PaintedSurface : public NativeSurface {
  public:
    PaintedSurface(QPainter& painter, const QRect& room, const QColor& ground)
        : painter_(painter), room_(room), ground_(ground) {}

    QSize Size() const override { return room_.size(); }
    QColor Ground() const override { return ground_; }
    void Paint(const std::function<void(QPainter&)>& drawing) override;

  private:
    QPainter& painter_;
    QRect room_;
    QColor ground_;
};

/// A picture. It is opened for each drawing anew: however many surfaces a picture has, and however long they
/// are kept, none is in another's way.
class PictureSurface : public NativeSurface {
  public:
    explicit PictureSurface(std::shared_ptr<NativePicture> picture) : picture_(std::move(picture)) {}

    QSize Size() const override;
    QColor Ground() const override { return Qt::transparent; }
    void Paint(const std::function<void(QPainter&)>& drawing) override;

  private:
    std::shared_ptr<NativePicture> picture_;
};

} // namespace folimark
