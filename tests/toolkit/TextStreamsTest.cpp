#include "TextStreams.h"
#include "Hindrances.h"
#include "TestFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace folimark {
namespace {

using test::TestFolder;

void Save(const Ref<FolderItem>& file, const std::vector<std::string>& lines) {
    const auto stream = TextOutputStream::Create(file);
    for (const std::string& line : lines) {
        stream->WriteLine(line);
    }
    stream->Close();
    stream->Close();
    EXPECT_THROW(stream->WriteLine("too late"), IOException);
}

std::vector<std::string> Load(const Ref<FolderItem>& file) {
    std::vector<std::string> lines;
    const auto stream = TextInputStream::Open(file);
    while (!stream->EOF()) {
        lines.push_back(stream->ReadLine(nullptr));
    }
    stream->Close();
    EXPECT_TRUE(stream->EOF());
    EXPECT_EQ(stream->ReadLine(), "");
    return lines;
}

mode_t Permissions(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

TEST(TextStreams, ReadLinesOfEveryKind) {
    const TestFolder folder;
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a", {"a"}},
        {"a\n\nb\n", {"a", "", "b"}},
        {"a\r\nb\rc\n\rd", {"a", "b", "c", "", "d"}},
        {"\r\n\r\n", {"", ""}},
        {"\xFF→\n", {"\xFF→"}},
        {std::string(300000, 'x') + "\ny", {std::string(300000, 'x'), "y"}}};
    for (const auto& [content, lines] : cases) {
        folder.Write("list", content);
        EXPECT_EQ(Load(folder.Item("list")), lines) << content.substr(0, 20);
    }
}

TEST(TextStreams, GiveBackWhatWasWritten) {
    const TestFolder folder;
    const auto file = SpecialFolder::Preferences()->Child("Folimark.Preferences");
    for (const std::vector<std::string>& lines :
         {std::vector<std::string>{"Computer:é:", "", "b"}, std::vector<std::string>{}}) {
        Save(file, lines);
        EXPECT_EQ(Load(file), lines);
    }
    EXPECT_EQ(Permissions(file->NativePath()), 0600U);
    EXPECT_EQ(Permissions(folder.Home() + "/.config"), 0700U);
}

TEST(TextStreams, KeepPermissionsAndLinks) {
    const TestFolder folder{"real/list", "links/"};
    ASSERT_EQ(chmod(folder.Path("real/list").c_str(), 0640), 0);
    folder.Link("links/first", "../links/second");
    folder.Link("links/second", folder.Path("real/list"));
    folder.Link("links/new", "../real/new");
    Save(folder.Item("links/first"), {"saved"});
    Save(folder.Item("links/new"), {"made"});
    EXPECT_EQ(folder.Read("real/list") + folder.Read("real/new"), "saved\nmade\n");
    EXPECT_EQ(Permissions(folder.Path("real/list")), 0640U);
    EXPECT_EQ(folder.Names("links"), (std::vector<std::string>{"first", "new", "second"}));
    EXPECT_EQ(access(folder.Path("links/first").c_str(), F_OK), 0);
}

TEST(TextStreams, LeaveTheOldFileWhenTheyFail) {
    const TestFolder folder{"list", "folder/a"};
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    folder.Link("loop", "loop");
    folder.Link("astray", "gone/list");
    const std::vector<std::string> names = folder.Names();
    TextOutputStream::Create(folder.Item("list"))->WriteLine("never closed");
    for (const std::string name : {"folder", "pipe", "loop", "astray", "list/below"}) {
        EXPECT_THROW(Save(folder.Item(name), {"new"}), IOException) << name;
    }
    EXPECT_EQ(folder.Read("list"), "content");
    EXPECT_EQ(folder.Names(), names);
}

TEST(TextStreams, DontReplaceWhatIsProtected) {
    const TestFolder folder{"list"};
    ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
    ASSERT_EQ(chmod(folder.Path("list").c_str(), 0444), 0);
    {
        const test::AsNobody nobody;
        EXPECT_THROW(Save(folder.Item("list"), {"new"}), IOException);
        Save(folder.Item("other"), {"new"});
    }
    EXPECT_EQ(folder.Read("list"), "content");
}

TEST(TextStreams, RefuseToReadWhatIsNoFile) {
    const TestFolder folder{"folder/a"};
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    for (const std::string name : {"folder", "pipe", "gone", "gone/list"}) {
        EXPECT_THROW(TextInputStream::Open(folder.Item(name)), IOException) << name;
    }
    EXPECT_THROW(TextInputStream::Open(nullptr), NilObjectException);
    EXPECT_THROW(TextOutputStream::Create(nullptr), NilObjectException);
}

} // namespace
} // namespace folimark
