#include "Answers.h"
#include "RunningApplication.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

namespace folimark::test {
namespace {

/// Does at random what a user can do, beside a model of what has to come of it.
class Sequence {
  public:
    explicit Sequence(unsigned seed) : random_(seed) {}

    void Step() {
        const std::size_t kind = Pick(8);
        if (albums_.empty() || kind <= 1) {
            Add();
            return;
        }
        const std::size_t row = Pick(albums_.size());
        Album& album = albums_[row];
        ClickRow(application_.Albums(), static_cast<int>(row));
        if (kind == 2 || kind == 3) {
            Do("open", album, [&] { Click(application_.Albums(), "Open Album"); });
            album.open = true;
        } else if (kind == 4) {
            Do("trash", album, [&] {
                const Answers answers{{"Trash the “" + album.name + "” album?", "Trash"}};
                Click(application_.Albums(), "Trash Album");
            });
            albums_.erase(albums_.begin() + static_cast<std::ptrdiff_t>(row));
        } else if (kind == 5 && !album.open) {
            Do("fail", album, [&] {
                const Answers answers{{"This album no longer exists…", "OK"}};
                std::filesystem::remove_all(folder_.Path(album.name));
                Click(application_.Albums(), "Open Album");
            });
            folder_.Write(album.name + "/a.jpg");
            albums_.erase(albums_.begin() + static_cast<std::ptrdiff_t>(row));
        } else if (kind == 6 && album.open) {
            Do("close", album, [&] { Click(application_.Albums(), "Close Album"); });
            album.open = false;
        } else if (album.open) {
            Do("close by its frame", album, [&] { CloseByFrame(application_.Album(static_cast<int>(row))); });
            album.open = false;
        }
        Check();
    }

    const std::string& Story() const { return story_; }

  private:
    struct Album {
        std::string name;
        bool open = false;
    };

    std::size_t Pick(std::size_t count) { return random_() % count; }

    void Do(const char* what, const Album& album, const std::function<void()>& action) {
        story_ += std::string(what) + " " + album.name + "; ";
        action();
    }

    void Add() {
        const Album album{std::string(1, static_cast<char>('a' + Pick(8)))};
        if (std::ranges::find(albums_, album.name, &Album::name) == albums_.end()) {
            Do("add", album, [&] { application_.AddAlbum(folder_.Path(album.name)); });
            albums_.insert(std::ranges::lower_bound(albums_, album.name, {}, &Album::name), album);
            EXPECT_EQ(application_.Albums()->TheListBox()->ListIndex(), std::ssize(albums_) - 1);
        }
        Check();
    }

    void Check() const {
        std::string labels;
        std::string file;
        for (std::size_t row = 0; row < albums_.size(); ++row) {
            labels += row > 0 ? ", " : "";
            labels += albums_[row].name;
            labels += albums_[row].open ? "*" : "";
            file += folder_.Item(albums_[row].name)->AbsolutePath();
            file += "\n";
            if (albums_[row].open) {
                EXPECT_EQ(application_.Album(static_cast<int>(row))->Title(), albums_[row].name);
            }
        }
        EXPECT_EQ(application_.Labels(), labels);
        EXPECT_EQ(RunningApplication::ListFile(), file);
        EXPECT_EQ(application_.Albums()->CatalogWindows.Ubound(), std::ssize(albums_) - 1);
    }

    std::minstd_rand random_;
    TestFolder folder_{"a/a.jpg", "b/a.jpg", "c/a.jpg", "d/a.jpg",
                       "e/a.jpg", "f/a.jpg", "g/a.jpg", "h/a.jpg"};
    RunningApplication application_;
    std::vector<Album> albums_;
    std::string story_;
};

TEST(Albums, RowsWindowsAndFileStayTogether) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        Sequence sequence(seed);
        for (int step = 0; step < 30 && !HasFailure(); ++step) {
            sequence.Step();
        }
        ASSERT_FALSE(HasFailure()) << sequence.Story();
    }
}

} // namespace
} // namespace folimark::test
