// SPDX-License-Identifier: MIT
#include "widgets/Sheet.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace kestrel {
namespace {

static_assert(Sheet::EndResponse == 1000);

class SheetOnAWindow : public ::testing::Test {
public:
    ~SheetOnAWindow() override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

protected:
    SheetOnAWindow() { window->show(); }
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPointer<Sheet> sheet = new Sheet(window.get());
    int ends = 0;
};

TEST_F(SheetOnAWindow, EndsOnceWithWhateverResponse) {
    for (const int response : {0, 1, Sheet::EndResponse}) {
        QPointer<Sheet> one = new Sheet(window.get());
        int seen = -1;
        int count = 0;
        QObject::connect(one, &QDialog::finished, window.get(), [&](int code) { seen = code; });
        one->begin([&] { ++count; });
        one->end(response);
        EXPECT_EQ(seen, response);
        EXPECT_FALSE(one->isVisible());
        one->end(response);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(one.isNull());
        EXPECT_EQ(count, 1);
    }
}

TEST_F(SheetOnAWindow, EndingWithItsOwnResponseIsNeitherAcceptedNorRejected) {
    int others = 0;
    QObject::connect(sheet, &QDialog::accepted, window.get(), [&] { ++others; });
    QObject::connect(sheet, &QDialog::rejected, window.get(), [&] { ++others; });
    sheet->begin([&] { ++ends; });
    sheet->end();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(others, 0);
}

TEST_F(SheetOnAWindow, ItsContentLivesStillWhenItsEndIsTold) {
    auto* content = new QWidget;
    const QPointer<QWidget> watched = content;
    sheet->setContent(content);
    bool lived = false;
    sheet->begin([&] { lived = !watched.isNull(); });
    window.reset();
    EXPECT_TRUE(lived);
    EXPECT_TRUE(watched.isNull());
}

TEST_F(SheetOnAWindow, OneThatWasNeverBegunTellsNothing) {
    sheet->end();
    window.reset();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(ends, 0);
}

TEST_F(SheetOnAWindow, IsFoundOnItsWindowOnlyWhileItIsOpen) {
    const QWidget other;
    EXPECT_FALSE(Sheet::isOpenOn(window.get()));
    sheet->begin([] {});
    EXPECT_TRUE(Sheet::isOpenOn(window.get()));
    EXPECT_FALSE(Sheet::isOpenOn(&other));
    EXPECT_FALSE(Sheet::isOpenOn(nullptr));
    sheet->end();
    EXPECT_FALSE(Sheet::isOpenOn(window.get()));
}

} // namespace
} // namespace kestrel
