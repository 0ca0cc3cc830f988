#include "ColonPath.h"
#include "TestFolder.h"

#include <gtest/gtest.h>
#include <random>

namespace folimark {
namespace {

using namespace std::string_literals;
using test::TestFolder;

TEST(ColonPath, ShowsNamesAsOneLine) {
    const std::pair<std::string, std::string> cases[] = {{"plain name.jpg", "plain name.jpg"},
                                                         {"Größe → 🙂", "Größe → 🙂"},
                                                         {"12:30", "12/30"},
                                                         {"a\nb\r", "a\uEF0Ab\uEF0D"},
                                                         {"\x7F\u0085", "\uEF7F\uEFC2\uEF85"},
                                                         {"\xC3(\xFF", "\uEFC3(\uEFFF"},
                                                         {"\xED\xA0\x80", "\uEFED\uEFA0\uEF80"},
                                                         {"\uEF41", "\uEFEE\uEFBD\uEF81"},
                                                         {"\uEEFF\uF000", "\uEEFF\uF000"}};
    for (const auto& [name, field] : cases) {
        EXPECT_EQ(FieldOfName(name), field);
        EXPECT_EQ(NameOfField(field), name);
    }
    EXPECT_EQ(ColonPathOfFolder("/home/12:30"), "Computer:home:12/30:");
    EXPECT_EQ(NativePathOf("Computer:home:12/30"), "/home/12:30");
    EXPECT_EQ(ColonPathOfFolder(""), "Computer:");
    EXPECT_EQ(NativePathOf("Computer:"), "");
}

TEST(ColonPath, RefusesWhatIsNoPath) {
    for (const std::string path :
         {"", ":", "Disk:a", "Computer::a", "Computer:a::", "Computer:.", "Computer:..:a", "Computer:\uEF2E",
          "Computer:a\uEF2Fb", "Computer:a\uEF00b", "/home", "Computers"}) {
        EXPECT_FALSE(NativePathOf(path)) << path;
        EXPECT_FALSE(GetFolderItem(path)) << path;
    }
    EXPECT_FALSE(GetFolderItem("Computer:a\0b"s));
    EXPECT_FALSE(GetFolderItem("Computer:home:", 1));
}

TEST(ColonPath, LeadsEveryNameBack) {
    std::mt19937 random(11);
    const std::vector<std::string> pieces = {":",    "\uEF3A", "\xEE", "\xBC", "\xBA",
                                             "\xC2", "\x85",   "\n",   "é",    "."};
    for (int i = 0; i < 200000; ++i) {
        std::string name;
        for (std::size_t length = random() % 8 + 1; length > 0; --length) {
            const std::size_t choice = random() % (2 * pieces.size());
            name += choice < pieces.size() ? pieces[choice] : std::string(1, static_cast<char>(random()));
        }
        if (name == "." || name == ".." || name.find_first_of("/\0"s) != std::string::npos) {
            continue;
        }
        const std::string field = FieldOfName(name);
        ASSERT_EQ(NameOfField(field), name);
        ASSERT_EQ(field.find_first_of(":\n\r\0"s), std::string::npos);
    }
}

TEST(ColonPath, LeadsBackToFilesOnTheDisk) {
    const std::string longest(255, '\xFF');
    const TestFolder folder{"a\nb.jpg", "12:30/\xC3(.jpg", "\uEF41", "\x80\x81", "é", "e\u0301", longest};
    const std::int64_t count = folder.Item()->Count();
    EXPECT_EQ(count, 7);
    for (std::int64_t i = 1; i <= count; ++i) {
        const auto listed = folder.Item()->Item(i);
        const auto named = GetFolderItem(listed->AbsolutePath());
        EXPECT_TRUE(named->Exists());
        EXPECT_EQ(named->NativePath(), listed->NativePath());
        EXPECT_EQ(named->AbsolutePath(), listed->AbsolutePath());
        EXPECT_EQ(folder.Item()
                      ->Child(FieldOfName(listed->NativePath().substr(folder.Path().size() + 1)))
                      ->NativePath(),
                  listed->NativePath());
    }
}

} // namespace
} // namespace folimark
