#include "Answers.h"
#include "GlobalData.h"
#include "NativeApplication.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include <cmath>
#include <map>

namespace folimark::test {
namespace {

/// How well two colours can be told apart (WCAG 2).
double Contrast(QRgb one, QRgb other) {
    const auto luminance = [](QRgb color) {
        const auto part = [](int value) {
            const double v = value / 255.0;
            return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color)) + 0.05;
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return lighter / darker;
}

/// The contrast of the text in `room` to the ground that it stands on: the colour that most of it has.
double TextContrast(QWidget& widget, QRect room) {
    const QImage image = widget.grab(room).toImage().convertToFormat(QImage::Format_RGB32);
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    const auto fewer = [](const auto& left, const auto& right) { return left.second < right.second; };
    const QRgb ground = std::max_element(counts.begin(), counts.end(), fewer)->first;
    double contrast = 1;
    for (const auto& [color, count] : counts) {
        contrast = std::max(contrast, Contrast(ground, color));
    }
    return contrast;
}

constexpr double kReadable = 4.5; // WCAG 2, level AA
constexpr double kDimmed = 3;

/// Checks all text in a window but for its list's rows.
void ExpectReadable(QWidget& window, const std::string& when) {
    constexpr int kFrame = 4;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        auto* button = qobject_cast<QAbstractButton*>(widget);
        auto* label = qobject_cast<QLabel*>(widget);
        auto* headings = qobject_cast<QHeaderView*>(widget);
        const bool hasText = (button != nullptr && !button->text().isEmpty())
                             || (label != nullptr && !label->text().isEmpty())
                             || (headings != nullptr && headings->orientation() == Qt::Horizontal)
                             || qobject_cast<QComboBox*>(widget) != nullptr
                             || (qobject_cast<QLineEdit*>(widget) != nullptr && !widget->hasFocus());
        if (!hasText || !widget->isVisible()) {
            continue;
        }
        QRect room = widget->rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
        if (widget->inherits("QToolButton")) {
            room.setTop(room.bottom() - widget->fontMetrics().height()); // beneath the picture
        } else if (qobject_cast<QComboBox*>(widget) != nullptr) {
            room.setRight(room.center().x()); // beside the arrow
        }
        EXPECT_GE(TextContrast(*widget, room), widget->isEnabled() ? kReadable : kDimmed)
            << when << ": " << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
}

class Palettes : public testing::Test {
  protected:
    ~Palettes() override { QApplication::setPalette(before_); }

    static QPalette Make(QRgb button, QRgb ground, QRgb base, QRgb text, QRgb selection) {
        QPalette palette(QColor::fromRgb(button), QColor::fromRgb(ground));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(role, QColor::fromRgb(text));
            palette.setColor(QPalette::Disabled, role, Qt::gray);
        }
        palette.setColor(QPalette::Base, QColor::fromRgb(base));
        palette.setColor(QPalette::Highlight, QColor::fromRgb(selection));
        return palette;
    }

    const std::pair<const char*, QPalette> kinds_[3] = {
        {"light", QApplication::palette()},
        {"dark", Make(0x353535, 0x2B2B2B, 0x1E1E1E, 0xEEEEEE, 0x15539E)},
        {"high contrast", Make(0x000000, 0x000000, 0x000000, 0xFFFFFF, 0xFFFF00)}};

  private:
    QPalette before_ = QApplication::palette();
};

TEST_F(Palettes, EveryTextCanBeReadInEach) {
    for (const auto& [kind, palette] : kinds_) {
        const TestFolder folder{"WWW.mp3", "WXW.mp3", "WYW.mp3"};
        QApplication::setPalette(palette);
        const RunningApplication application;
        ExpectReadable(FrameOf(application.Albums()), std::string(kind) + ", no album");
        const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
        auto& list = dynamic_cast<QTableView&>(WidgetOf(album, "TheListBox"));
        for (const bool marked : {false, true}) {
            album->Highlighted.Set(0, marked);
            album->Highlighted.Set(1, marked);
            for (const bool inFront : {true, false}) {
                (inFront ? Ref<Window>(album) : GlobalData::CatalogsWindow)->Show();
                for (int selected = 0; selected < 2; ++selected) {
                    album->TheListBox()->ListIndex(selected);
                    Settle();
                    for (int row = 0; row < 3; ++row) {
                        const QRect cell = list.visualRect(list.model()->index(row, 0)).adjusted(4, 0, 0, 0);
                        EXPECT_GE(TextContrast(*list.viewport(), cell), kReadable)
                            << kind << marked << inFront << selected << row;
                    }
                }
            }
        }
        ExpectReadable(FrameOf(album), std::string(kind) + ", the album");
        ExpectReadable(FrameOf(application.Albums()), std::string(kind) + ", the albums");
        const Answers answers{{kHighlightDialog, "", [&, kind = kind](const Ref<Window>& dialog) {
                                   ExpectReadable(FrameOf(dialog), std::string(kind) + ", the dialog");
                                   Click(dialog, "Cancel");
                               }}};
        Click(album, "Highlight…");
    }
}

TEST(Readable, NamesNeitherHideNorLeaveTheirPlaces) {
    const TestFolder folder{"a\x1B"
                            "b.mp3",
                            "c\u202E3pm.mp3", "שלום.mp3"};
    const RunningApplication application;
    const Ref<aListWindow> album = application.AddAndOpenAlbum(folder.Path());
    auto& list = dynamic_cast<QTableView&>(WidgetOf(album, "TheListBox"));
    const char* shown[] = {"a␛b", "c⟦RLO⟧3pm", "שלום"};
    for (int row = 0; row < 3; ++row) {
        const QModelIndex index = list.model()->index(row, 0);
        EXPECT_TRUE(index.data().toString().startsWith(QString::fromUtf8(shown[row])))
            << index.data().toString().toStdString();
        // Each stands at the left of its column, so the column's right half is blank.
        QRect half = list.visualRect(index);
        half.setLeft(half.center().x());
        EXPECT_EQ(TextContrast(*list.viewport(), half), 1) << row;
    }
    EXPECT_EQ(album->TheListBox()->Cell(1, 0).find("c\u202E3pm"), 0U);
    album->Title("\u202Ename");
    EXPECT_EQ(album->Title(), "\u202Ename");
    EXPECT_EQ(FrameOf(album).windowTitle(), QString::fromUtf8("⟦RLO⟧name"));
}

TEST(WindowSystem, TheXProtocolIsAskedForWhereASessionServesBoth) {
    EXPECT_EQ(PluginsFor("wayland-0", ":0", ""), "xcb;wayland");
    EXPECT_EQ(PluginsFor("wayland-0", "", ""), "");
    EXPECT_EQ(PluginsFor("", ":0", ""), "");
    EXPECT_EQ(PluginsFor("wayland-0", ":0", "wayland"), "");
}

} // namespace
} // namespace folimark::test
