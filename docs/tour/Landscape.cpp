#include "Landscape.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace folimark::test {
namespace {

constexpr int kLayers = 5;

QColor Mixed(const QColor& one, const QColor& other, double part) {
    const auto mix = [part](int a, int b) { return static_cast<int>(a + (b - a) * part); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

/// A line of hills: a few waves on top of each other.
class Ridge {
  public:
    Ridge(std::mt19937& random, double height, double roughness) : height_(height) {
        std::uniform_real_distribution<double> any(0, 1);
        double amplitude = roughness;
        double frequency = 1 + any(random);
        for (Wave& wave : waves_) {
            wave = {amplitude, frequency, any(random) * 2 * std::numbers::pi};
            amplitude *= 0.48;
            frequency *= 2.1;
        }
    }

    /// The height at `x`, both as parts of the picture's size, from the top.
    double At(double x) const {
        double y = height_;
        for (const Wave& wave : waves_) {
            y -= wave.amplitude * std::sin(2 * std::numbers::pi * wave.frequency * x + wave.phase);
        }
        return y;
    }

  private:
    struct Wave {
        double amplitude = 0;
        double frequency = 0;
        double phase = 0;
    };
    std::array<Wave, 6> waves_{};
    double height_;
};

void PaintSky(QPainter& painter, const Scene& scene, QSizeF size) {
    QLinearGradient sky(0, 0, 0, size.height() * 0.7);
    sky.setColorAt(0, scene.sky);
    sky.setColorAt(1, scene.horizon);
    painter.fillRect(QRectF(QPointF(), size), sky);
    const QPointF sun(scene.sun.x() * size.width(), scene.sun.y() * size.height());
    QRadialGradient glow(sun, size.width() * 0.45);
    glow.setColorAt(0, QColor(255, 250, 225, 235));
    glow.setColorAt(0.08, QColor(255, 236, 190, 130));
    glow.setColorAt(1, QColor(255, 220, 170, 0));
    painter.fillRect(QRectF(QPointF(), size), glow);
    painter.setBrush(QColor(255, 252, 238));
    painter.drawEllipse(sun, scene.sunSize * size.width(), scene.sunSize * size.width());
}

void PaintRidge(QPainter& painter, const Ridge& ridge, const QColor& color, QSizeF size) {
    QPainterPath path(QPointF(0, size.height()));
    double highest = 1;
    for (int x = 0; x <= size.width() + 1; x += 2) {
        const double y = ridge.At(x / size.width());
        highest = std::min(highest, y);
        path.lineTo(x, y * size.height());
    }
    path.lineTo(size.width(), size.height());
    QLinearGradient shade(0, highest * size.height(), 0, size.height());
    shade.setColorAt(0, color);
    shade.setColorAt(0.5, Mixed(color, Qt::white, 0.16)); // mist in the valleys
    shade.setColorAt(1, color);
    painter.fillPath(path, shade);
}

void PaintTree(QPainter& painter, QPointF foot, double height) {
    for (int tier = 0; tier < 4; ++tier) {
        const double top = foot.y() - height * (1 - tier * 0.2);
        const double bottom = foot.y() - height * (0.6 - tier * 0.2);
        const double half = height * (0.1 + 0.05 * tier);
        painter.drawPolygon(QPolygonF(
            {QPointF(foot.x(), top), QPointF(foot.x() - half, bottom), QPointF(foot.x() + half, bottom)}));
    }
}

/// The lower part of the picture mirrors the one above, darker and in ripples.
void PaintWater(QPainter& painter, const QImage& above, const Scene& scene, QSizeF size) {
    const int shore = static_cast<int>(size.height() * 0.72);
    const QImage mirrored = above.copy(0, 0, above.width(), shore).mirrored();
    for (int y = shore; y < above.height(); ++y) {
        const double depth = static_cast<double>(y - shore) / (size.height() - shore);
        const int shift = static_cast<int>(std::sin(y * 0.9) * (1 + 7 * depth));
        const int source = std::min(static_cast<int>((y - shore) * 1.6), mirrored.height() - 1);
        painter.drawImage(QRect(shift - 8, y, above.width() + 16, 1), mirrored,
                          QRect(0, source, above.width(), 1));
    }
    QLinearGradient dark(0, shore, 0, size.height());
    dark.setColorAt(0, QColor(255, 255, 255, 40));
    dark.setColorAt(0.1, QColor(scene.near.red(), scene.near.green(), scene.near.blue(), 40));
    dark.setColorAt(1, QColor(scene.near.red(), scene.near.green(), scene.near.blue(), 190));
    painter.fillRect(QRectF(0, shore, size.width(), size.height() - shore), dark);
}

} // namespace

QImage PaintLandscape(const Scene& scene, QSize size) {
    std::mt19937 random(scene.seed);
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    PaintSky(painter, scene, size);
    for (int layer = 0; layer < kLayers; ++layer) {
        const double nearness = static_cast<double>(layer) / (kLayers - 1);
        const bool front = layer == kLayers - 1;
        if (front && scene.water) {
            painter.end();
            const QImage above = image;
            painter.begin(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            PaintWater(painter, above, scene, size);
        }
        const Ridge ridge(random, front ? 0.93 : 0.5 + 0.06 * layer, front ? 0.035 : 0.075 - 0.012 * layer);
        const QColor color =
            Mixed(Mixed(scene.far, scene.horizon, 0.45 * (1 - nearness)), scene.near, nearness);
        PaintRidge(painter, ridge, color, size);
        if (front && scene.trees) {
            painter.setBrush(color.darker(135));
            std::uniform_real_distribution<double> any(0, 1);
            for (int tree = 0; tree < 26; ++tree) {
                const double x = any(random) < 0.5 ? any(random) * 0.32 : 1 - any(random) * 0.3;
                PaintTree(painter, QPointF(x * size.width(), (ridge.At(x) + 0.02) * size.height()),
                          (0.1 + 0.14 * any(random)) * size.height());
            }
        }
    }
    return image;
}

} // namespace folimark::test
