#include "app/desktop/libraries/BookPictures.h"
#include "tests/desktop/WindowOfLibrary.h"

#include <cstring>

using namespace murbo;

using BookPicturesTest = OnWindow<WindowOfLibrary>;

TEST_F(BookPicturesTest, comeFromAWorkerAndTheSameAgain) {
    BookPictures pictures(shown->editor());
    const auto book = Playbooks::library().front();
    EXPECT_FALSE(pictures.picture(book, 3));
    std::optional<Bitmap> first;
    ASSERT_TRUE(QTest::qWaitFor([&] { return (first = pictures.picture(book, 3)).has_value(); }, 20000));
    EXPECT_EQ(first->height(), BookPictures::height);
    shown->editor().apply([](Project& project) {
        const auto& source = project.sources[0];
        const Line said{.start = 0, .end = source.length, .text = "said meanwhile"};
        project.transcripts[source.id].lines = std::vector{said}; // captions are no part of a playbook
    });
    pictures.follow();
    EXPECT_FALSE(pictures.picture(book, 3)) << "drawn anew over what is shown now";
    std::optional<Bitmap> second;
    ASSERT_TRUE(QTest::qWaitFor([&] { return (second = pictures.picture(book, 3)).has_value(); }, 20000));
    for (int y = 0; y < first->height(); ++y)
        ASSERT_EQ(std::memcmp(first->row(y), second->row(y), static_cast<std::size_t>(first->width()) * 4), 0)
            << y;
}
