// SPDX-License-Identifier: MIT
#include "navigation/container/PlaceList.h"

#include <gtest/gtest.h>
#include <QSignalSpy>

namespace kestrel::test {
namespace {

using Content = PlaceList::Content;
using Kind = Place::Kind;

Place place(const char* file, Kind kind = Kind::found) {
    return {QString::fromLatin1(file), 1, 1, kind, QString()};
}

class PlaceListTest : public testing::Test {
protected:
    QString file() const { return list.current() != nullptr ? list.current()->file : QString(); }

    PlaceList list;
};

TEST_F(PlaceListTest, AnEmptyListGoesNowhere) {
    EXPECT_FALSE(list.next());
    EXPECT_FALSE(list.previous());
    EXPECT_EQ(list.current(), nullptr);
}

TEST_F(PlaceListTest, TheFirstStepGoesToTheFirstErrorAndFromThereOnRoundTheEnd) {
    list.fill(Content::problems, nullptr,
              {place("a", Kind::warning), place("b", Kind::error), place("c", Kind::error)});
    EXPECT_EQ(file(), QString());
    for (const char* const expected : {"b", "c", "a", "b"}) {
        EXPECT_TRUE(list.next());
        EXPECT_EQ(file(), QString::fromLatin1(expected));
    }
    for (const char* const expected : {"a", "c"}) {
        EXPECT_TRUE(list.previous());
        EXPECT_EQ(file(), QString::fromLatin1(expected));
    }
}

TEST_F(PlaceListTest, WithoutErrorsTheFirstStepGoesToTheFirstPlaceOrBackToTheLast) {
    list.fill(Content::uses, nullptr, {place("a"), place("b")});
    list.next();
    EXPECT_EQ(file(), u"a");
    list.fill(Content::uses, nullptr, {place("a"), place("b")});
    EXPECT_EQ(file(), QString());
    list.previous();
    EXPECT_EQ(file(), u"b");
}

TEST_F(PlaceListTest, WhoeverFillsItLastIsWalkedThrough) {
    list.fill(Content::problems, nullptr, {place("a")});
    list.fill(Content::uses, nullptr, {place("u")});
    list.add(Content::problems, {place("b")});
    list.clear(Content::problems);
    ASSERT_EQ(list.places().size(), 1U);
    list.add(Content::uses, {place("v")});
    list.next();
    list.next();
    EXPECT_EQ(file(), u"v");
    list.clear(Content::uses);
    EXPECT_TRUE(list.places().empty());
    EXPECT_EQ(list.current(), nullptr);
}

TEST_F(PlaceListTest, TellsWhatChanges) {
    const QSignalSpy filled(&list, &PlaceList::filled);
    const QSignalSpy added(&list, &PlaceList::added);
    const QSignalSpy current(&list, &PlaceList::currentChanged);
    list.fill(Content::found, nullptr, {place("a")});
    list.add(Content::found, {place("b")});
    EXPECT_EQ(filled.size(), 1);
    ASSERT_EQ(added.size(), 1);
    EXPECT_EQ(added.front().front().value<std::size_t>(), 1U);
    EXPECT_EQ(current.size(), 1);
    list.setCurrentIndex(1);
    list.setCurrentIndex(2); // there is none
    EXPECT_EQ(current.size(), 2);
    EXPECT_EQ(list.currentIndex(), 1U);
}

TEST_F(PlaceListTest, KeepsNoMoreThanItsLimit) {
    list.fill(Content::problems, nullptr, std::vector<Place>(PlaceList::Limit - 1, place("a")));
    list.add(Content::problems, {place("b"), place("c")});
    EXPECT_EQ(list.places().size(), PlaceList::Limit);
    EXPECT_EQ(list.places().back().file, u"b");
    list.add(Content::problems, {place("d")});
    EXPECT_EQ(list.places().size(), PlaceList::Limit);
    list.fill(Content::problems, nullptr, std::vector<Place>(PlaceList::Limit + 1, place("a")));
    EXPECT_EQ(list.places().size(), PlaceList::Limit);
}

} // namespace
} // namespace kestrel::test
