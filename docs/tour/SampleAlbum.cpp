#include "SampleAlbum.h"

#include "Landscape.h"
#include "SampleFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <stdexcept>

namespace folimark::test {
namespace {

const Scene kDawn{.sky = "#3d5a80",
                  .horizon = "#f6c7a3",
                  .far = "#8d7f9e",
                  .near = "#1f2c3f",
                  .sun = {0.64, 0.42},
                  .seed = 3};
const Scene kNoon{.sky = "#2f7fd1",
                  .horizon = "#cfe8f7",
                  .far = "#7fa3b8",
                  .near = "#28503a",
                  .sun = {0.2, 0.14},
                  .sunSize = 0.03,
                  .seed = 8};
const Scene kDusk{.sky = "#2b2350",
                  .horizon = "#ef7b5a",
                  .far = "#7d4a73",
                  .near = "#191226",
                  .sun = {0.4, 0.47},
                  .sunSize = 0.06,
                  .seed = 15};
const Scene kGreen{.sky = "#6fb1d6",
                   .horizon = "#eef3d2",
                   .far = "#8fb58a",
                   .near = "#2d4d1f",
                   .sun = {0.8, 0.2},
                   .sunSize = 0.035,
                   .water = false,
                   .seed = 22};
const Scene kIce{.sky = "#5a87a8",
                 .horizon = "#f2f7fa",
                 .far = "#b9cfdc",
                 .near = "#44647a",
                 .sun = {0.3, 0.3},
                 .sunSize = 0.03,
                 .trees = false,
                 .seed = 31};
const Scene kNight{.sky = "#050b1f",
                   .horizon = "#2c4168",
                   .far = "#1e2c4a",
                   .near = "#04070f",
                   .sun = {0.72, 0.2},
                   .sunSize = 0.025,
                   .seed = 44};

class Writer {
  public:
    explicit Writer(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

    /// The path of a file to be written; its folder is there.
    QString Path(const QString& name) const {
        QString path = folder_.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        return path;
    }
    void File(const QString& name, const QByteArray& content) {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            throw std::runtime_error("Can't write " + name.toStdString());
        }
        // The photographs were taken on the days of the journey.
        file.setFileTime(QDateTime(QDate(2024, 6, 11).addDays(++files_ / 3), QTime(10, 0)),
                         QFileDevice::FileModificationTime);
    }
    void Photograph(const QString& name, Scene scene, QSize size, unsigned seed, int orientation = 0) {
        scene.seed += seed;
        const QImage image = PaintLandscape(scene, size);
        File(name, orientation == 0 ? JpegFile(image, 1) : JpegFile(image, orientation));
    }

  private:
    QDir folder_;
    int files_ = 0;
};

} // namespace

void WriteJourney(const QString& folder) {
    Writer writer(folder);
    const QSize wide(1200, 800);
    const QSize high(800, 1200);
    writer.Photograph("Day 1/Harbour at dawn.jpg", kDawn, wide, 0);
    writer.Photograph("Day 1/The long beach.jpg", kNoon, wide, 0);
    writer.Photograph("Day 1/Été sur l’île.jpg", kGreen, wide, 0);
    writer.Photograph("Day 2/Beach with pines.jpg", kNoon, {1500, 1000}, 5);
    writer.Photograph("Day 2/Glacier, upright.jpg", kIce, high, 0, 6);
    writer.Photograph("Day 2/Glacier, from the boat.jpg", kIce, wide, 3, 3);
    writer.Photograph("Day 2/🏔 summit.jpg", kIce, wide, 9);
    writer.Photograph("Day 3/日没.jpg", kDusk, wide, 0);
    writer.Photograph("Day 3/Last light on the fjord.jpg", kDusk, wide, 4);
    writer.Photograph("Day 3/Beach at night.jpg", kNight, wide, 0);
    writer.Photograph("Day 3/Night/Moon over the pass.jpg", kNight, high, 6, 8);
    writer.Photograph(".thumbnails/hidden.jpg", kNoon, {60, 40}, 0);
    const QImage small = PaintLandscape(kDawn, {360, 240});
    writer.File("Postcard.tiff", TiffFile(small));
    writer.File("Stamp.gif", GifFile(PaintLandscape(kDusk, {120, 160})));
    small.save(writer.Path("Sketch.bmp"));
    PaintLandscape(kGreen, {600, 600}).save(writer.Path("Meadow.png"));
    QList<QImage> film;
    for (int i = 0; i < 24; ++i) {
        Scene scene = kDawn;
        scene.sun.ry() -= i * 0.006;
        film.append(PaintLandscape(scene, {160, 120}));
    }
    writer.File("Ferry.avi", AviFile(film));
    writer.File("Waves.wav", WavFile(4));
    WritePdf(writer.Path("Travel diary.pdf"), "Travel diary", PaintLandscape(kDawn, {600, 400}), 3);
    WritePdf(writer.Path("Tickets.pdf"), "Ferry tickets", PaintLandscape(kNoon, {600, 400}), 1);
    writer.File("notes.txt", "What we packed.\n");
    writer.File("Day 1/route.text", "North.\n");
}

void WriteGarden(const QString& folder) {
    Writer writer(folder);
    for (int i = 1; i <= 6; ++i) {
        writer.Photograph(QStringLiteral("Hillside %1.jpg").arg(i), kGreen, {900, 600},
                          static_cast<unsigned>(i) * 7);
    }
}

} // namespace folimark::test
