#include "PictureQueue.h"
#include "PictureFixtures.h"
#include "PictureStore.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <poll.h>

namespace folimark::test {
namespace {

/// The answers up to the one to a question of that type, by their types.
std::string AnswersUntil(PictureQueue& queue, const std::string& type) {
    std::string types;
    while (!types.ends_with(type)) {
        pollfd ready{queue.AnswersDescriptor(), POLLIN, 0};
        if (poll(&ready, 1, 60'000) != 1) {
            return types + " and no more";
        }
        for (const auto& [question, reading] : queue.TakeAnswers()) {
            types += (types.empty() ? "" : ", ") + question.type;
            EXPECT_TRUE(reading.file);
        }
    }
    return types;
}

TEST(PictureQueue, WhatIsWantedWaitsForNothingElse) {
    const TestFolder folder{"a.jpg"};
    SetPictureProcessExecutable(MISBEHAVING_PICTURES);
    PictureQueue queue;
    const auto question = [&](const char* how, int width = 0) {
        return PictureQuestion{folder.Path("a.jpg"), how, width, 0};
    };
    queue.Want(question("well"));
    EXPECT_EQ(AnswersUntil(queue, "well"), "well");
    // Both threads hang, one of them in what was only read ahead, which is broken off and isn't an answer.
    queue.ReadAhead({question("hang"), question("well", 1)});
    queue.Want(question("hang", 1));
    queue.Want(question("count questions"));
    EXPECT_EQ(AnswersUntil(queue, "count questions"), "count questions");
    SetPictureProcessExecutable("");
}

TEST(PictureStore, GivesWhatIsStillTheVeryFile) {
    const TestFolder folder{"a.jpg", "b.jpg"};
    const std::string path = folder.Path("a.jpg");
    const PictureQuestion question{path, "image/jpeg", 300, 300};
    const auto reading = [&](int width) {
        PictureReading made{FileState::Of(path), DecodedPicture{}, PictureRefusal::None};
        made.picture->width = width;
        made.picture->height = 1;
        return made;
    };
    const std::function<void()> changes[] = {
        [&] { std::ofstream(path, std::ios::app) << "more"; },
        [&] { std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now()); },
        [&] { std::filesystem::rename(folder.Path("b.jpg"), path); }, [&] { std::filesystem::remove(path); }};
    for (const auto& change : changes) {
        PictureStore store(64 << 10);
        store.Keep(question, reading(300));
        ASSERT_NE(store.Find(question), nullptr);
        EXPECT_EQ(store.Find({path, "image/jpeg", 0, 0}), nullptr) << "for another room";
        change();
        EXPECT_EQ(store.Find(question), nullptr);
    }
    std::ofstream(path) << "again";
    PictureStore small(40 << 10);
    const auto other = [&](int width) { return PictureQuestion{path, "image/jpeg", width, 0}; };
    for (const int width : {1, 2, 3}) {
        small.Keep(other(width), reading(2000)); // of 8,000 bytes each
    }
    EXPECT_NE(small.Find(other(1)), nullptr);
    small.Keep(other(4), reading(2000));
    small.Keep(other(5), reading(2000));
    small.Keep(other(6), reading(4000)); // more than a quarter
    std::string kept;
    for (int width = 1; width <= 6; ++width) {
        kept += small.Find(other(width)) != nullptr ? std::to_string(width) : "";
    }
    EXPECT_EQ(kept, "1345") << "The one that was used last longest ago has gone.";
}

} // namespace
} // namespace folimark::test
